#pragma once

#include "CoreTypes.h"
#include "Orientation.h"
#include "Text/Sprite.h"

#include <vector>

namespace Flitmark
{

/**
 * A sprite's pixels (premultiplied RGBA) with the opacity, from 0 to 1, applied, in the orientation of the stored picture.
 * InWidth and InHeight: the sprite's size in the stored picture.
 */
std::vector<uint8> OrientedPixels(const FSprite& InSprite, double InOpacity, const FOrientation& InOrientation,
								  int32 InWidth, int32 InHeight);

} // namespace Flitmark
