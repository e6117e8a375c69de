#pragma once

#include "CoreTypes.h"
#include "AvHandles.h"

extern "C"
{
#include <libavutil/pixdesc.h>
}

#include <array>
#include <optional>

namespace Flitmark
{

/** One of a frame's planes: what its samples mean. */
struct FPlaneLayout
{
	/** Components by index: 0 Y, 1 Cb, 2 Cr; two if chroma is interleaved. */
	int32 Components = 1;
	std::array<int32, 2> Component{};

	/** log2 of luma pixels per sample. */
	int32 ShiftX = 0;
	int32 ShiftY = 0;
};

/**
 * A pixel format that comments can be blended into directly: YCbCr without alpha, 8 to 12 bits, any subsampling, chroma in
 * separate planes or interleaved, 16-bit samples in native byte order.
 */
struct FPixelLayout
{
	int32 Depth = 8;

	/** Unused low bits of a 16-bit sample (6 in P010). */
	int32 SampleShift = 0;

	int32 PlaneCount = 0;
	std::array<FPlaneLayout, 3> Planes{};

	/** Empty for formats of any other kind. */
	static std::optional<FPixelLayout> Of(AVPixelFormat InFormat);

	/** The format to convert InFormat to: the blendable one that loses least of it. */
	static AVPixelFormat Nearest(AVPixelFormat InFormat);

	/** The same, restricted to InAllowed (terminated by AV_PIX_FMT_NONE); AV_PIX_FMT_NONE if there is none. */
	static AVPixelFormat Nearest(AVPixelFormat InFormat, const AVPixelFormat* InAllowed);
};

/** Maps the legacy full-range formats (yuvj420p), which are the plain ones plus a tag, to the plain ones. */
AVPixelFormat WithoutImpliedRange(AVPixelFormat InFormat);

} // namespace Flitmark
