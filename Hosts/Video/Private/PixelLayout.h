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
	/** Components by index: 0 Y, 1 Cb, 2 Cr; two where chroma is interleaved. */
	int32 Components = 1;
	std::array<int32, 2> Component{};

	/** log2 of luma pixels per sample. */
	int32 ShiftX = 0;
	int32 ShiftY = 0;
};

/**
 * A pixel format that comments are blended into as it is: YCbCr without alpha, 8 to 12 bits, any subsampling, chroma in
 * planes of its own or interleaved, 16-bit samples in this machine's byte order.
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

	/** The same out of those that InAllowed lists (ended by AV_PIX_FMT_NONE); AV_PIX_FMT_NONE where there is none. */
	static AVPixelFormat Nearest(AVPixelFormat InFormat, const AVPixelFormat* InAllowed);
};

/** The old formats that imply full range (yuvj420p) are the plain ones with a tag: gives the plain one. */
AVPixelFormat WithoutImpliedRange(AVPixelFormat InFormat);

} // namespace Flitmark
