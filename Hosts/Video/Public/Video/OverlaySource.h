#pragma once

#include "CoreTypes.h"
#include "Text/Sprite.h"

#include <vector>

namespace Flitmark
{

/** What an overlay needs to know about a video. */
struct FVideoShape
{
	/** The upright picture (after the rotation that players apply), in stored pixels. */
	int32 Width = 0;
	int32 Height = 0;

	/** Width of a stored pixel divided by its height, in the upright picture. */
	double PixelAspect = 1.0;

	/** Average frames per second, for hosts that plan ahead; 0 where unknown. */
	double FrameRate = 0.0;
};

/** Supplies the comments for each frame. Called from one thread, frame by frame, in time order. */
class IOverlaySource
{
public:
	virtual ~IOverlaySource() = default;

	/** Called once, before the first frame. */
	virtual void Open(const FVideoShape& InShape) = 0;

	/**
	 * The comments on the frame shown at InTicks (100-nanosecond ticks of media time, 0 or more), in painting order.
	 * InDeltaSeconds: time since the frame before, a few seconds at most (0 for the first frame and after a jump).
	 */
	virtual void Advance(int64 InTicks, double InDeltaSeconds, std::vector<FPlacedSprite>& OutSprites) = 0;

	/** The next frame is so much later that nothing moves there: it shows what is due at InTicks, as after a seek. */
	virtual void Jump([[maybe_unused]] int64 InTicks) {}

	/** Whether this frame and all later ones show no comment; where nobody knows, false. */
	virtual bool IsOver() const { return false; }
};

} // namespace Flitmark
