#pragma once

#include "GlyphStore.h"
#include "Shaper.h"
#include "Text/Sprite.h"
#include "Text/TextEngine.h"

#include <span>

namespace Flitmark
{

/** How a sprite is to be painted. */
struct FSpriteStyle
{
	/** Pixels to the em of text; from 1 to FTextLimits::MaxEmPixels. */
	double EmX = 1.0;
	double EmY = 1.0;
	FTextColor Color;
};

/** Paints shaped text: all outlines beneath all fills, so that neighbours never darken each other. */
FSprite PaintSprite(FGlyphStore& InStore, std::span<const FShapedGlyph> InGlyphs, const FSpriteStyle& InStyle);

} // namespace Flitmark
