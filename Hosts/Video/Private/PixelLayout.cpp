#include "PixelLayout.h"

#include <bit>
#include <iterator>
#include <utility>
#include <vector>

namespace Flitmark
{

namespace
{

constexpr std::pair<AVPixelFormat, AVPixelFormat> ImpliedRanges[] = {
	{AV_PIX_FMT_YUVJ420P, AV_PIX_FMT_YUV420P}, {AV_PIX_FMT_YUVJ422P, AV_PIX_FMT_YUV422P},
	{AV_PIX_FMT_YUVJ444P, AV_PIX_FMT_YUV444P}, {AV_PIX_FMT_YUVJ440P, AV_PIX_FMT_YUV440P},
	{AV_PIX_FMT_YUVJ411P, AV_PIX_FMT_YUV411P},
};

bool IsBlendable(const AVPixFmtDescriptor& InFormat)
{
	constexpr uint64 Refused = AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_PAL | AV_PIX_FMT_FLAG_BITSTREAM |
							   AV_PIX_FMT_FLAG_HWACCEL | AV_PIX_FMT_FLAG_ALPHA | AV_PIX_FMT_FLAG_FLOAT |
							   AV_PIX_FMT_FLAG_BAYER;
	const auto& Component = InFormat.comp;
	const int Depth = Component[0].depth;
	if ((InFormat.flags & Refused) != 0 || InFormat.nb_components != 3 || Depth < 8 || Depth > 12)
	{
		return false;
	}
	const bool bBigEndian = (InFormat.flags & AV_PIX_FMT_FLAG_BE) != 0;
	if (Depth > 8 && bBigEndian != (std::endian::native == std::endian::big))
	{
		return false;
	}
	const int Bytes = Depth > 8 ? 2 : 1;
	const int Step = Component[1].plane == Component[2].plane ? 2 * Bytes : Bytes;
	return Component[0].step == Bytes && Component[1].step == Step && Component[2].step == Step &&
		   Component[0].plane == 0 && Component[1].plane != 0 && Component[2].plane != 0 &&
		   Component[1].depth == Depth && Component[2].depth == Depth && Component[1].shift == Component[0].shift &&
		   Component[2].shift == Component[0].shift;
}

FPixelLayout LayoutOf(const AVPixFmtDescriptor& InFormat)
{
	FPixelLayout Layout;
	Layout.Depth = InFormat.comp[0].depth;
	Layout.SampleShift = InFormat.comp[0].shift;
	for (int32 Index = 0; Index < 3; ++Index)
	{
		const int Plane = InFormat.comp[Index].plane;
		FPlaneLayout& Target = Layout.Planes[static_cast<size_t>(Plane)];
		const bool bSecond = Index > 0 && Plane == InFormat.comp[Index == 1 ? 2 : 1].plane;
		Target.Components = bSecond ? 2 : 1;
		Target.Component[InFormat.comp[Index].offset > 0 ? 1 : 0] = Index;
		Target.ShiftX = Index > 0 ? InFormat.log2_chroma_w : 0;
		Target.ShiftY = Index > 0 ? InFormat.log2_chroma_h : 0;
		Layout.PlaneCount = std::max(Layout.PlaneCount, Plane + 1);
	}
	return Layout;
}

std::vector<AVPixelFormat> AllBlendable()
{
	std::vector<AVPixelFormat> Formats;
	for (const AVPixFmtDescriptor* Each = av_pix_fmt_desc_next(nullptr); Each != nullptr;
		 Each = av_pix_fmt_desc_next(Each))
	{
		const AVPixelFormat Format = av_pix_fmt_desc_get_id(Each);
		if (IsBlendable(*Each) && WithoutImpliedRange(Format) == Format)
		{
			Formats.push_back(Format);
		}
	}
	Formats.push_back(AV_PIX_FMT_NONE);
	return Formats;
}

/** A gray picture gets the cheapest chroma: it only holds the comments'. */
AVPixelFormat WithChroma(AVPixelFormat InFormat)
{
	const AVPixFmtDescriptor* const Format = av_pix_fmt_desc_get(InFormat);
	const bool bGray = Format != nullptr && Format->nb_components <= 2 && (Format->flags & AV_PIX_FMT_FLAG_PAL) == 0;
	return !bGray ? InFormat : Format->comp[0].depth > 8 ? AV_PIX_FMT_YUV420P10 : AV_PIX_FMT_YUV420P;
}

} // namespace

std::optional<FPixelLayout> FPixelLayout::Of(AVPixelFormat InFormat)
{
	const AVPixFmtDescriptor* const Format = av_pix_fmt_desc_get(InFormat);
	if (Format == nullptr || !IsBlendable(*Format))
	{
		return std::nullopt;
	}
	return LayoutOf(*Format);
}

AVPixelFormat FPixelLayout::Nearest(AVPixelFormat InFormat)
{
	static const std::vector<AVPixelFormat> Formats = AllBlendable();
	return Nearest(InFormat, Formats.data());
}

AVPixelFormat FPixelLayout::Nearest(AVPixelFormat InFormat, const AVPixelFormat* InAllowed)
{
	const AVPixelFormat Source = WithChroma(InFormat);
	AVPixelFormat Best = AV_PIX_FMT_NONE;
	for (; *InAllowed != AV_PIX_FMT_NONE; ++InAllowed)
	{
		if (Of(*InAllowed) && WithoutImpliedRange(*InAllowed) == *InAllowed)
		{
			Best = av_find_best_pix_fmt_of_2(Best, *InAllowed, Source, 0, nullptr);
		}
	}
	return Best;
}

AVPixelFormat WithoutImpliedRange(AVPixelFormat InFormat)
{
	for (const auto& [Implied, Plain] : ImpliedRanges)
	{
		if (Implied == InFormat)
		{
			return Plain;
		}
	}
	return InFormat;
}

} // namespace Flitmark
