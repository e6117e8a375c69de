#include "Playback/HeldSeek.h"

#include <algorithm>
#include <cmath>

namespace Flitmark
{

namespace
{

/** Seconds between two steps. */
constexpr double StepTime = 0.2;

/** Seconds of holding after which a step grows by another single one, and how many it has at most. */
constexpr double GrowTime = 1.5;
constexpr double MaxGrowth = 4.0;

/** A grown step is at most this part of the video, so that a minute's holding never passes a short one by. */
constexpr double MaxPart = 1.0 / 60.0;

} // namespace

double FHeldSeek::Press(double InStep, bool bInRepeat, double InNow, double InDuration)
{
	if (!bInRepeat)
	{
		Begin = Last = InNow;
		return InStep;
	}
	if (InNow - Last < StepTime)
	{
		return 0.0;
	}
	Last = InNow;
	const double Growth = std::min(1.0 + std::floor((InNow - Begin) / GrowTime), MaxGrowth);
	const double Widest = std::max(std::abs(InStep), InDuration * MaxPart);
	return std::copysign(std::min(std::abs(InStep) * Growth, Widest), InStep);
}

} // namespace Flitmark
