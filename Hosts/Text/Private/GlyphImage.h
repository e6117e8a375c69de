#pragma once

#include "FontSet.h"

#include <cstdint>
#include <vector>

namespace Flitmark
{

/** Which drawing of a glyph. */
struct FGlyphKey
{
	/** Steps of the pen within a pixel, so that letters of small text keep their distances. */
	static constexpr std::int32_t PhaseCount = 4;

	std::uint32_t Glyph = 0;
	FFontId Font = FFontSet::Primary;

	/** The pen's fraction of a pixel to the right, 0 to PhaseCount - 1. */
	std::uint8_t Phase = 0;

	/** Pixels to the em of text, in 1/64 pixel. */
	std::int32_t EmX = 0;
	std::int32_t EmY = 0;

	bool operator==(const FGlyphKey&) const = default;
};

/** A rectangle of pixels, its place told from the pen on the baseline: to the right and down. */
struct FPixelRect
{
	std::int32_t Left = 0;
	std::int32_t Top = 0;
	std::int32_t Width = 0;
	std::int32_t Height = 0;
};

/** RGBA multiplied by alpha, rows top down. */
struct FColorPlane : FPixelRect
{
	std::vector<std::uint8_t> Pixels;
};

/** Two masks in one: each pixel has the coverage by the glyph itself in the low byte, how dark its outline is above. */
struct FMaskPlane : FPixelRect
{
	/** Rows are this many pixels apart; beyond Width they are empty, so that loops may run in whole blocks. */
	static constexpr std::int32_t Block = 8;
	std::int32_t Stride = 0;
	std::vector<std::uint16_t> Pixels;
};

/** A drawn glyph: masks to be coloured, or colours of its own. Planes may be empty. */
struct FGlyphImage
{
	FMaskPlane Masks;
	FColorPlane Color;

	/** Too large to be drawn. */
	bool bCut = false;

	/** Memory of the pixels. */
	std::size_t CountBytes() const { return Masks.Pixels.size() * sizeof(std::uint16_t) + Color.Pixels.size(); }
};

} // namespace Flitmark
