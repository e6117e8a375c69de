#pragma once

#include "AvHandles.h"
#include "Video/OverlaySource.h"
#include "SpritePlanes.h"

#include <memory>
#include <span>

namespace Flitmark
{

/** Blends comments into frames of one format, directly in the frames' planes. */
class IBlender
{
public:
	virtual ~IBlender() = default;

	/**
	 * Blends the sprites in order. The frame must be writable and have the format the blender was made for; what
	 * lies outside it is clipped. Call it for frames without sprites too, so that dead sprites are forgotten.
	 */
	virtual void Blend(AVFrame& InFrame, std::span<const FPlacedSprite> InSprites) = 0;

	static std::unique_ptr<IBlender> Make(const FBlendStyle& InStyle);
};

/**
 * A sprite's rectangle in the stored picture of a frame, rounded to whole pixels (halves up); empty if
 * none of it is in the picture.
 */
std::optional<FPixelRect> StoredPlace(const FPlacedSprite& InSprite, const FOrientation& InOrientation, int32 InWidth,
									  int32 InHeight);

} // namespace Flitmark
