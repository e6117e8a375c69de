#pragma once

#include "CoreTypes.h"
#include "Misc/Timespan.h"
#include "Video/OverlaySource.h"

#include <algorithm>
#include <span>
#include <vector>

namespace Flitmark
{

/** Steps an overlay through the frames of a video; burn and shot use the same times, so they agree. */
class FOverlayClock
{
public:
	FOverlayClock(IOverlaySource& InOverlay, const FVideoShape& InShape)
		: Overlay(InOverlay)
	{
		Overlay.Open(InShape);
	}

	/**
	 * The comments on the frame at InTicks of media time, which is moved after the previous frame if necessary. A longer
	 * gap than LongestStep is a jump.
	 */
	std::span<const FPlacedSprite> Advance(int64 InTicks)
	{
		const int64 Ticks = std::max(std::min(InTicks, LongestTime), Last);
		const bool bJumps = !bFirst && Ticks - Last > LongestStep;
		const double Delta = bFirst || bJumps ? 0.0 : static_cast<double>(Ticks - Last) / 1e7;
		Last = Ticks;
		if (bJumps)
		{
			Overlay.Jump(Ticks);
		}
		bFirst = false;
		Sprites.clear();
		Overlay.Advance(Ticks, Delta, Sprites);
		return Sprites;
	}

private:
	/** Ten seconds: about as long as a comment is on the screen. A damaged file can have frames of years. */
	static constexpr int64 LongestStep = 10 * ETimespan::TicksPerSecond;
	/** Some 30 years, far from where seconds and ticks run over. */
	static constexpr int64 LongestTime = 1'000'000'000 * ETimespan::TicksPerSecond;

	IOverlaySource& Overlay;
	std::vector<FPlacedSprite> Sprites;
	int64 Last = 0;
	bool bFirst = true;
};

} // namespace Flitmark
