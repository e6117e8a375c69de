#pragma once

#include "GlyphImage.h"

namespace Flitmark
{

/** Draws a glyph, unhinted. An empty image where the font has nothing to show. Safe to call from several threads. */
FGlyphImage RenderGlyph(FT_Library InLibrary, const FFont& InFont, const FGlyphKey& InKey);

} // namespace Flitmark
