#pragma once

#include "Line.h"

namespace Flitmark
{

/**
 * Gives every character of a line the font of its cluster: an emoji sequence (skin tones, joined
 * sequences, flags, keycaps, a presentation selector) the emoji font, marks and joiners that of their base.
 */
void ChooseClusterFonts(FFontSet& InFonts, FLine& InOutLine);

} // namespace Flitmark
