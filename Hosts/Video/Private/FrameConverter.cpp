#include "FrameConverter.h"

#include "ColorMatrix.h"
#include "PixelLayout.h"

#include <new>

namespace Flitmark
{

namespace
{

bool IsRgb(int InFormat)
{
	const AVPixFmtDescriptor* const Format = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(InFormat));
	return Format != nullptr && (Format->flags & (AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_PAL)) != 0;
}

int FullRange(const AVFrame& InFrame)
{
	const AVPixelFormat Format = static_cast<AVPixelFormat>(InFrame.format);
	return IsRgb(Format) || InFrame.color_range == AVCOL_RANGE_JPEG || WithoutImpliedRange(Format) != Format ? 1 : 0;
}

} // namespace

bool FFrameConverter::Prepare(const AVFrame& InFrame, const AVFrame& InTarget)
{
	if (Scaler && Kind->format == InFrame.format && Kind->width == InFrame.width && Kind->height == InFrame.height &&
		Kind->colorspace == InFrame.colorspace && Kind->color_range == InFrame.color_range)
	{
		return true;
	}
	Kind = MakeFrame();
	Kind->format = InFrame.format;
	Kind->width = InFrame.width;
	Kind->height = InFrame.height;
	Kind->colorspace = InFrame.colorspace;
	Kind->color_range = InFrame.color_range;
	Scaler.reset(sws_getContext(
		InFrame.width, InFrame.height, static_cast<AVPixelFormat>(InFrame.format), Width, Height, Format,
		SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT | SWS_FULL_CHR_H_INP, nullptr, nullptr, nullptr));
	if (!Scaler)
	{
		return false;
	}
	// Both sides by the same matrix: which of them is YCbCr is swscale's to know. Formats without a matrix refuse.
	const int* const Matrix = sws_getCoefficients(SettledMatrix(IsRgb(InFrame.format) ? InTarget : InFrame));
	constexpr int Unity = 1 << 16;
	sws_setColorspaceDetails(Scaler.get(), Matrix, FullRange(InFrame), Matrix, FullRange(InTarget), 0, Unity, Unity);
	return true;
}

FFramePtr FFrameConverter::Convert(const AVFrame& InFrame)
{
	FFramePtr Target = MakeFrame();
	if (av_frame_copy_props(Target.get(), &InFrame) < 0)
	{
		throw std::bad_alloc();
	}
	Target->format = Format;
	Target->width = Width;
	Target->height = Height;
	if (IsRgb(Format))
	{
		Target->colorspace = AVCOL_SPC_RGB;
		Target->color_range = AVCOL_RANGE_JPEG;
	}
	else if (IsRgb(InFrame.format))
	{
		Target->colorspace = SettledMatrix(*Target);
		Target->color_range = AVCOL_RANGE_MPEG;
	}
	else
	{
		const bool bFull = FullRange(InFrame) != 0 || WithoutImpliedRange(Format) != Format;
		Target->color_range = bFull ? AVCOL_RANGE_JPEG : InFrame.color_range;
	}
	if (av_frame_get_buffer(Target.get(), 0) < 0)
	{
		throw std::bad_alloc();
	}
	if (!Prepare(InFrame, *Target) ||
		sws_scale(Scaler.get(), InFrame.data, InFrame.linesize, 0, InFrame.height, Target->data, Target->linesize) < 0)
	{
		return nullptr;
	}
	return Target;
}

} // namespace Flitmark
