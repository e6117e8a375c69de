#pragma once

#include "CoreTypes.h"
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

	/** The comments on the frame at InTicks of media time, which is moved after the previous frame if necessary. */
	std::span<const FPlacedSprite> Advance(int64 InTicks)
	{
		const int64 Ticks = std::max(InTicks, Last);
		const double Delta = bFirst ? 0.0 : static_cast<double>(Ticks - Last) / 1e7;
		Last = Ticks;
		bFirst = false;
		Sprites.clear();
		Overlay.Advance(Ticks, Delta, Sprites);
		return Sprites;
	}

private:
	IOverlaySource& Overlay;
	std::vector<FPlacedSprite> Sprites;
	int64 Last = 0;
	bool bFirst = true;
};

} // namespace Flitmark
