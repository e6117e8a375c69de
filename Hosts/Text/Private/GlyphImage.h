#pragma once

#include "CoreTypes.h"
#include "FontSet.h"

#include <vector>

namespace Flitmark
{

/** Which drawing of a glyph. */
struct FGlyphKey
{
	/** Steps of the pen within a pixel, so that letters of small text keep their distances. */
	static constexpr int32 PhaseCount = 4;

	uint32 Glyph = 0;
	FFontId Font = FFontSet::Primary;

	/** The pen's fraction of a pixel to the right, 0 to PhaseCount - 1. */
	uint8 Phase = 0;

	/** Pixels to the em of text, in 1/64 pixel. */
	int32 EmX = 0;
	int32 EmY = 0;

	bool operator==(const FGlyphKey&) const = default;
};

/** A rectangle of pixels, its place told from the pen on the baseline: to the right and down. */
struct FPixelRect
{
	int32 Left = 0;
	int32 Top = 0;
	int32 Width = 0;
	int32 Height = 0;
};

/** RGBA multiplied by alpha, rows top down. */
struct FColorPlane : FPixelRect
{
	std::vector<uint8> Pixels;
};

/** Two masks in one: each pixel has the coverage by the glyph itself in the low byte, how dark its outline is above. */
struct FMaskPlane : FPixelRect
{
	/** Rows are this many pixels apart; beyond Width they are empty, so that loops may run in whole blocks. */
	static constexpr int32 Block = 8;
	int32 Stride = 0;
	std::vector<uint16> Pixels;
};

/** A drawn glyph: masks to be coloured, or colours of its own. Planes may be empty. */
struct FGlyphImage
{
	FMaskPlane Masks;
	FColorPlane Color;

	/** Too large to be drawn. */
	bool bCut = false;

	/** Memory of the pixels. */
	std::size_t CountBytes() const { return Masks.Pixels.size() * sizeof(uint16) + Color.Pixels.size(); }
};

} // namespace Flitmark
