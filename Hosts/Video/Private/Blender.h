#pragma once

#include "AvHandles.h"
#include "Video/OverlaySource.h"
#include "SpritePlanes.h"

#include <memory>
#include <span>

namespace Flitmark
{

/** Blends comments into frames of one format, in the frames' own planes. */
class IBlender
{
public:
	virtual ~IBlender() = default;

	/**
	 * Blends the sprites in their order. The frame must be writable and of the format the blender was made for; what
	 * reaches out of it is left out. Call it for frames without sprites too: sprites that are gone are forgotten then.
	 */
	virtual void Blend(AVFrame& InFrame, std::span<const FPlacedSprite> InSprites) = 0;

	static std::unique_ptr<IBlender> Make(const FBlendStyle& InStyle);
};

/**
 * Where a sprite lies in the stored picture of a frame, its place rounded to whole pixels (halves up); empty where
 * nothing of it is in the picture.
 */
std::optional<FPixelRect> StoredPlace(const FPlacedSprite& InSprite, const FOrientation& InOrientation, int32 InWidth,
									  int32 InHeight);

} // namespace Flitmark
