#pragma once

#include "GlyphImage.h"

namespace Flitmark
{

/**
 * Scales a colour bitmap (BGRA multiplied by alpha) whose left edge lies InLeft of its pixels from the pen and whose
 * top edge InTop above the baseline. Smooth in both directions: averages when shrinking, interpolates when growing.
 */
FColorPlane ResampleColor(const FT_Bitmap& InBitmap, int InLeft, int InTop, double InScaleX, double InScaleY);

} // namespace Flitmark
