#pragma once

#include "CoreTypes.h"
#include "FontSet.h"

#include <vector>

namespace Flitmark
{

/** Identifies a drawing of a glyph. */
struct FGlyphKey
{
	/** Subpixel pen positions, so that small text keeps its letter spacing. */
	static constexpr int32 PhaseCount = 4;

	uint32 Glyph = 0;
	FFontId Font = FFontSet::Primary;

	/** The pen's fraction of a pixel to the right, 0 to PhaseCount - 1. */
	uint8 Phase = 0;

	/** Pixels per em of text, in 1/64 pixel. */
	int32 EmX = 0;
	int32 EmY = 0;

	bool operator==(const FGlyphKey&) const = default;
};

/** A rectangle of pixels, relative to the pen on the baseline: to the right and down. */
struct FPixelRect
{
	int32 Left = 0;
	int32 Top = 0;
	int32 Width = 0;
	int32 Height = 0;
};

/** Premultiplied RGBA, rows top to bottom. */
struct FColorPlane : FPixelRect
{
	std::vector<uint8> Pixels;
};

/** Two masks in one: each pixel has the glyph's coverage in the low byte and the outline's in the high byte. */
struct FMaskPlane : FPixelRect
{
	/** Stride in pixels; rows are empty beyond Width, so that loops may run in whole blocks. */
	static constexpr int32 Block = 8;
	int32 Stride = 0;
	std::vector<uint16> Pixels;
};

/** A drawn glyph: masks to be colored, or its own colors. Planes may be empty. */
struct FGlyphImage
{
	FMaskPlane Masks;
	FColorPlane Color;

	/** Too large to draw. */
	bool bCut = false;

	/** Memory for the pixels. */
	std::size_t CountBytes() const { return Masks.Pixels.size() * sizeof(uint16) + Color.Pixels.size(); }
};

} // namespace Flitmark
