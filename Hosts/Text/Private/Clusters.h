#pragma once

#include "Line.h"

namespace Flitmark
{

/**
 * Gives every character of a line the font of the cluster it belongs to: an emoji sequence (skin tones, joined
 * sequences, flags, keycaps, a presentation selector) the emoji font, marks and joiners that of what they stand on.
 */
void ChooseClusterFonts(FFontSet& InFonts, FLine& InOutLine);

} // namespace Flitmark
