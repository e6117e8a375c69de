#pragma once

#include "GlyphImage.h"

namespace Flitmark
{

/**
 * Draws a glyph, unhinted. An empty image if the font has nothing to show. InOutline: factor on the outline's usual
 * width. Thread-safe.
 */
FGlyphImage RenderGlyph(FT_Library InLibrary, const FFont& InFont, const FGlyphKey& InKey, double InOutline);

} // namespace Flitmark
