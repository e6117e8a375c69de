#pragma once

#include "CoreTypes.h"
#include "AvHandles.h"

#include <array>
#include <optional>

namespace Flitmark
{

/** Where one component of a picture is: color, or the last one, alpha. */
struct FAlphaComponent
{
	int32 Plane = 0;

	/** Bytes from one sample to the next, and to the first. */
	int32 Step = 1;
	int32 Offset = 0;

	/** Unused low bits of a sample. */
	int32 SampleShift = 0;

	/** log2 of pixels per sample. */
	int32 ShiftX = 0;
	int32 ShiftY = 0;
};

/**
 * A pixel format with straight alpha that comments can be blended into directly: RGB or YCbCr, 8 to 16 bits, packed or in
 * planes, in native byte order.
 */
struct FAlphaLayout
{
	static constexpr size_t Alpha = 3;

	int32 Depth = 8;
	bool bRgb = false;

	/** Red, green, blue (or Y, Cb, Cr), alpha. */
	std::array<FAlphaComponent, 4> Components{};

	/** Empty for formats of any other kind. */
	static std::optional<FAlphaLayout> Of(AVPixelFormat InFormat);

	/**
	 * The format of that kind that loses least of InFormat, among InAllowed (terminated by AV_PIX_FMT_NONE; null: all);
	 * AV_PIX_FMT_NONE if there is none.
	 */
	static AVPixelFormat Nearest(AVPixelFormat InFormat, const AVPixelFormat* InAllowed);
};

/** Whether pixels of that format have an alpha of their own; those of palettes have not, as few of them mean it. */
bool HasAlpha(AVPixelFormat InFormat);

} // namespace Flitmark
