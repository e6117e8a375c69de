#include "Scene/FrameClock.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace Flitmark
{

namespace
{

constexpr double UsualRate = 60.0;
constexpr double MinRate = 10.0;
constexpr double MaxRate = 1000.0;

/** In periods: how far a single step may be off a whole number, and how far the sum may be off real time. */
constexpr double MostJitter = 0.45;
constexpr double MostOwed = 0.75;

/** In periods: beyond this the frames do not follow the display, and there is no point in snapping. */
constexpr double MostDrift = 0.08;
/** Weight of the newest step in the drift. */
constexpr double DriftWeight = 1.0 / 16.0;

/** Share of the debt that a snapped step pays back, so that a slightly wrong rate never adds up to a jump. */
constexpr double Payback = 0.05;

} // namespace

double ReadSteadyClock()
{
	return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void FFrameClock::SetRefreshRate(double InHertz)
{
	Period = 1.0 / (InHertz >= MinRate && InHertz <= MaxRate ? InHertz : UsualRate);
}

double FFrameClock::Advance(double InNow)
{
	const double Step = InNow - Last;
	Last = InNow;
	bLate = bStarted && Step > LongestStep;
	if (!bStarted || Step <= 0.0)
	{
		bStarted = true;
		return 0.0;
	}
	if (bLate)
	{
		Owed = 0.0;
		return Period;
	}
	return Snap(Step);
}

double FFrameClock::Snap(double InStep)
{
	const double Due = Owed + InStep;
	const double Whole = std::max(1.0, std::round(InStep / Period)) * Period;
	const double Rest = Due - Whole;
	Drift += DriftWeight * (InStep - Whole - Drift);
	const bool bFollows = std::abs(Drift) <= MostDrift * Period;
	const bool bNear = std::abs(InStep - Whole) <= MostJitter * Period && std::abs(Rest) <= MostOwed * Period;
	const double Given = bFollows && bNear ? Whole + Payback * Rest : std::max(Due, 0.0);
	Owed = Due - Given;
	return Given;
}

} // namespace Flitmark
