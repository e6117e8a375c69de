#pragma once

#include "GlyphStore.h"
#include "Shaper.h"
#include "Text/Sprite.h"
#include "Text/TextEngine.h"

#include <span>

namespace Flitmark
{

/** How to paint a sprite. */
struct FSpriteStyle
{
	/** Pixels per em of text; 1 to FTextLimits::MaxEmPixels. */
	double EmX = 1.0;
	double EmY = 1.0;
	FTextColor Color;
};

/** Paints shaped text: all outlines below all fills, so that neighbors never darken each other. */
FSprite PaintSprite(FGlyphStore& InStore, std::span<const FShapedGlyph> InGlyphs, const FSpriteStyle& InStyle);

} // namespace Flitmark
