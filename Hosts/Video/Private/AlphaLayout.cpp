#include "AlphaLayout.h"

extern "C"
{
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <bit>
#include <vector>

namespace Flitmark
{

namespace
{

bool IsServed(const AVPixFmtDescriptor& InFormat)
{
	constexpr uint64 Refused =
		AV_PIX_FMT_FLAG_PAL | AV_PIX_FMT_FLAG_BITSTREAM | AV_PIX_FMT_FLAG_HWACCEL | AV_PIX_FMT_FLAG_FLOAT;
	constexpr int MaxDepth = 16;
	const int Depth = InFormat.comp[0].depth;
	const bool bBigEndian = (InFormat.flags & AV_PIX_FMT_FLAG_BE) != 0;
	return (InFormat.flags & AV_PIX_FMT_FLAG_ALPHA) != 0 && (InFormat.flags & Refused) == 0 &&
		   InFormat.nb_components == 4 && Depth >= 8 && Depth <= MaxDepth &&
		   std::all_of(InFormat.comp, InFormat.comp + 4,
					   [Depth](const AVComponentDescriptor& In) { return In.depth == Depth; }) &&
		   (Depth == 8 || bBigEndian == (std::endian::native == std::endian::big));
}

std::vector<AVPixelFormat> AllServed()
{
	std::vector<AVPixelFormat> Formats;
	for (const AVPixFmtDescriptor* Each = av_pix_fmt_desc_next(nullptr); Each != nullptr;
		 Each = av_pix_fmt_desc_next(Each))
	{
		if (IsServed(*Each))
		{
			Formats.push_back(av_pix_fmt_desc_get_id(Each));
		}
	}
	Formats.push_back(AV_PIX_FMT_NONE);
	return Formats;
}

} // namespace

std::optional<FAlphaLayout> FAlphaLayout::Of(AVPixelFormat InFormat)
{
	const AVPixFmtDescriptor* const Format = av_pix_fmt_desc_get(InFormat);
	if (Format == nullptr || !IsServed(*Format))
	{
		return std::nullopt;
	}
	FAlphaLayout Layout;
	Layout.Depth = Format->comp[0].depth;
	Layout.bRgb = (Format->flags & AV_PIX_FMT_FLAG_RGB) != 0;
	for (size_t Index = 0; Index < Layout.Components.size(); ++Index)
	{
		const AVComponentDescriptor& Each = Format->comp[Index];
		const bool bChroma = !Layout.bRgb && (Index == 1 || Index == 2);
		Layout.Components[Index] = {Each.plane,
									Each.step,
									Each.offset,
									Each.shift,
									bChroma ? Format->log2_chroma_w : 0,
									bChroma ? Format->log2_chroma_h : 0};
	}
	return Layout;
}

AVPixelFormat FAlphaLayout::Nearest(AVPixelFormat InFormat, const AVPixelFormat* InAllowed)
{
	static const std::vector<AVPixelFormat> Formats = AllServed();
	AVPixelFormat Best = AV_PIX_FMT_NONE;
	for (const AVPixelFormat* Each = InAllowed != nullptr ? InAllowed : Formats.data(); *Each != AV_PIX_FMT_NONE;
		 ++Each)
	{
		if (Of(*Each))
		{
			Best = av_find_best_pix_fmt_of_2(Best, *Each, InFormat, 1, nullptr);
		}
	}
	return Best;
}

bool HasAlpha(AVPixelFormat InFormat)
{
	const AVPixFmtDescriptor* const Format = av_pix_fmt_desc_get(InFormat);
	return Format != nullptr && (Format->flags & AV_PIX_FMT_FLAG_ALPHA) != 0 &&
		   (Format->flags & AV_PIX_FMT_FLAG_PAL) == 0;
}

} // namespace Flitmark
