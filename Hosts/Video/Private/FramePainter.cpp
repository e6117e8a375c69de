#include "FramePainter.h"

#include "AlphaBlender.h"

extern "C"
{
#include <libavutil/imgutils.h>
}

#include <algorithm>
#include <new>
#include <utility>

namespace Flitmark
{

namespace
{

constexpr int RowAlignment = 64;

} // namespace

void FFramePainter::Start(AVPixelFormat InFormat, int32 InWidth, int32 InHeight)
{
	Converter.emplace(InFormat, InWidth, InHeight);
}

void FFramePainter::PrepareBlender(const AVFrame& InFrame)
{
	if (Blender && Space == InFrame.colorspace && Range == InFrame.color_range)
	{
		return;
	}
	Space = InFrame.colorspace;
	Range = InFrame.color_range;
	if (const auto Alpha = FAlphaLayout::Of(static_cast<AVPixelFormat>(InFrame.format)))
	{
		Blender = MakeAlphaBlender({*Alpha, FColorMatrix::For(InFrame, Alpha->Depth), Orientation});
		return;
	}
	FBlendStyle Style;
	Style.Layout = FPixelLayout::Of(static_cast<AVPixelFormat>(InFrame.format)).value();
	Style.Matrix = FColorMatrix::For(InFrame, Style.Layout.Depth);
	Style.Orientation = Orientation;
	Blender = IBlender::Make(Style);
}

FFramePtr FFramePainter::WritableCopy(const AVFrame& InFrame)
{
	const AVPixelFormat Format = static_cast<AVPixelFormat>(InFrame.format);
	const int Size = av_image_get_buffer_size(Format, InFrame.width, InFrame.height, RowAlignment);
	if (Size > 0 && PoolSize != static_cast<size_t>(Size))
	{
		PoolSize = static_cast<size_t>(Size);
		Pool.reset(av_buffer_pool_init(PoolSize + RowAlignment, nullptr));
	}
	FFramePtr Copy = MakeFrame();
	Copy->format = InFrame.format;
	Copy->width = InFrame.width;
	Copy->height = InFrame.height;
	Copy->buf[0] = Size > 0 && Pool ? av_buffer_pool_get(Pool.get()) : nullptr;
	if (Copy->buf[0] == nullptr || av_frame_copy_props(Copy.get(), &InFrame) < 0 ||
		av_image_fill_arrays(Copy->data, Copy->linesize, Copy->buf[0]->data, Format, InFrame.width, InFrame.height,
							 RowAlignment) < 0 ||
		av_frame_copy(Copy.get(), &InFrame) < 0)
	{
		throw std::bad_alloc();
	}
	return Copy;
}

FFramePtr FFramePainter::Paint(FFramePtr InFrame, std::span<const FPlacedSprite> InSprites)
{
	const AVPixelFormat Plain = WithoutImpliedRange(static_cast<AVPixelFormat>(InFrame->format));
	if (Plain != InFrame->format)
	{
		InFrame->format = Plain;
		InFrame->color_range = AVCOL_RANGE_JPEG;
	}
	if (!Converter->Fits(*InFrame))
	{
		InFrame = Converter->Convert(*InFrame);
	}
	if (!InFrame)
	{
		return nullptr;
	}
	PrepareBlender(*InFrame);
	const bool bTouched =
		std::any_of(InSprites.begin(), InSprites.end(),
					[this, &InFrame](const FPlacedSprite& InSprite)
					{ return StoredPlace(InSprite, Orientation, InFrame->width, InFrame->height).has_value(); });
	if (bTouched && av_frame_is_writable(InFrame.get()) == 0)
	{
		InFrame = WritableCopy(*InFrame);
	}
	Blender->Blend(*InFrame, InSprites);
	return InFrame;
}

} // namespace Flitmark
