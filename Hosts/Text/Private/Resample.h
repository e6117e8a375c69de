#pragma once

#include "GlyphImage.h"

namespace Flitmark
{

/**
 * Scales a color bitmap (premultiplied BGRA) whose left edge is InLeft of its pixels from the pen and whose
 * top edge InTop above the baseline. Smooth in both directions: averages when shrinking, interpolates when growing.
 */
FColorPlane ResampleColor(const FT_Bitmap& InBitmap, int InLeft, int InTop, double InScaleX, double InScaleY);

} // namespace Flitmark
