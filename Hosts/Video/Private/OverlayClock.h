#pragma once

#include "OverlaySource.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

namespace Flitmark
{

/** Takes an overlay through the frames of a video; burn and shot go through the same times, so they agree. */
class FOverlayClock
{
public:
	FOverlayClock(IOverlaySource& InOverlay, const FVideoShape& InShape)
		: Overlay(InOverlay)
	{
		Overlay.Open(InShape);
	}

	/** The comments on the frame at InTicks of media time, which is moved behind the frame before it if need be. */
	std::span<const FPlacedSprite> Advance(int64_t InTicks)
	{
		const int64_t Ticks = std::max(InTicks, Last);
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
	int64_t Last = 0;
	bool bFirst = true;
};

} // namespace Flitmark
