#pragma once

#include "CoreTypes.h"
#include "AvHandles.h"

#include <array>

namespace Flitmark
{

/**
 * From 8-bit sRGB multiplied by alpha to a video's code values multiplied by alpha. Because both are linear in the
 * multiplied values, the offsets (black level, neutral chroma) become a fourth column that alpha is multiplied by.
 */
struct FColorMatrix
{
	/** Rows Y, Cb, Cr; columns red, green, blue, alpha; 16 fraction bits. */
	std::array<std::array<int32, 4>, 3> Row{};

	/**
	 * According to the frame's tags. Without a matrix tag: BT.709 for pictures beyond standard definition (wider than
	 * 1279 or higher than 576), else BT.601, as players do; without a range tag: limited.
	 */
	static FColorMatrix For(const AVFrame& InFrame, int32 InDepth);
};

/** The frame's matrix tag, with "unspecified" resolved as above. */
AVColorSpace SettledMatrix(const AVFrame& InFrame);

} // namespace Flitmark
