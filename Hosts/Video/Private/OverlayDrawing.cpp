#include "OverlayDrawing.h"

#include "AlphaLayout.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>

namespace Flitmark
{

namespace
{

int64 ToWholeTicks(double InSeconds)
{
	return std::llround(InSeconds * static_cast<double>(TicksPerSecond));
}

/** Their frames are encoded with regard to others; those of encoders for editing need not be. */
bool IsForPlayers(const AVCodec& InCodec)
{
	return InCodec.id == AV_CODEC_ID_VP8 || InCodec.id == AV_CODEC_ID_VP9;
}

void Fill(AVFrame& InFrame, const FAlphaComponent& InComponent, bool bInDeep, int32 InValue)
{
	const int32 Width = AV_CEIL_RSHIFT(InFrame.width, InComponent.ShiftX);
	const int32 Height = AV_CEIL_RSHIFT(InFrame.height, InComponent.ShiftY);
	for (int32 Y = 0; Y < Height; ++Y)
	{
		uint8* Sample =
			InFrame.data[InComponent.Plane] + ptrdiff_t{Y} * InFrame.linesize[InComponent.Plane] + InComponent.Offset;
		for (int32 X = 0; X < Width; ++X, Sample += InComponent.Step)
		{
			const uint16 Value = static_cast<uint16>(InValue << InComponent.SampleShift);
			if (bInDeep)
			{
				std::memcpy(Sample, &Value, sizeof(Value));
			}
			else
			{
				*Sample = static_cast<uint8>(Value);
			}
		}
	}
}

} // namespace

FOverlayDrawing::FOverlayDrawing(const FOverlayVideoOptions& InOptions, IBurnProgress& InProgress,
								 const std::atomic<bool>& InCancel)
	: Options(InOptions)
	, Progress(InProgress)
	, Cancel(InCancel)
{
}

FVideoResult FOverlayDrawing::Draw(IOverlaySource& InOverlay)
{
	if (Open() && DrawFrames(InOverlay) && Finish())
	{
		return {};
	}
	return Error.empty() || Cancel ? FVideoResult{EVideoOutcome::Canceled, {}} : FVideoResult::Fail(Error);
}

bool FOverlayDrawing::Open()
{
	Schedule = FFrameSchedule::Make(Options, Cancel, Error);
	Sink = Schedule ? IOverlaySink::Open(Options, Error) : nullptr;
	if (!Sink)
	{
		return false;
	}
	MakeBlank();
	Painter.Start(static_cast<AVPixelFormat>(Blank->format), Blank->width, Blank->height);
	const double Whole = Schedule->EndSeconds();
	const double End = Options.To && (Whole <= 0.0 || *Options.To < Whole) ? *Options.To : Whole;
	State.TotalSeconds = std::max(0.0, End - Options.From.value_or(0.0));
	return StartEncoder();
}

void FOverlayDrawing::MakeBlank()
{
	Blank = MakeFrame();
	Blank->format = FAlphaLayout::Nearest(AV_PIX_FMT_RGBA, Sink->Codec().pix_fmts);
	Blank->width = Schedule->Shape().Width;
	Blank->height = Schedule->Shape().Height;
	if (av_frame_get_buffer(Blank.get(), 0) < 0)
	{
		throw std::bad_alloc();
	}
	const FAlphaLayout Layout = FAlphaLayout::Of(static_cast<AVPixelFormat>(Blank->format)).value();
	if (!Layout.bRgb)
	{
		Blank->colorspace = Schedule->Matrix();
		Blank->colorspace = SettledMatrix(*Blank);
		Blank->color_range = AVCOL_RANGE_MPEG;
	}
	// Black: programs that scale the picture before they heed its alpha mix in this color.
	const int32 Black = Layout.bRgb ? 0 : 16 << (Layout.Depth - 8);
	const int32 Neutral = Layout.bRgb ? 0 : 128 << (Layout.Depth - 8);
	const int32 Values[] = {Black, Neutral, Neutral, 0};
	for (size_t Index = 0; Index < Layout.Components.size(); ++Index)
	{
		Fill(*Blank, Layout.Components[Index], Layout.Depth > 8, Values[Index]);
	}
}

bool FOverlayDrawing::StartEncoder()
{
	const bool bEachAlone = !IsForPlayers(Sink->Codec());
	FEncoderSetup Setup;
	Setup.Codec = &Sink->Codec();
	Setup.Crf = Options.Crf;
	Setup.Preset = Options.Preset;
	Setup.Threads = Options.Threads;
	Setup.Format = static_cast<AVPixelFormat>(Blank->format);
	Setup.TimeBase = Schedule->TimeBase();
	Setup.FrameRate = Schedule->Rate();
	Setup.PixelAspect = av_d2q(Schedule->Shape().PixelAspect, 10'000);
	Setup.FieldOrder = AV_FIELD_PROGRESSIVE;
	Setup.bGlobalHeader = Sink->WantsGlobalHeader();
	Setup.bEachAlone = bEachAlone;
	Encoder = FVideoEncoder::Open(Setup, *Blank, Error);
	if (!Encoder || !Sink->Start(Encoder->Context(), Error))
	{
		return false;
	}
	Saver.emplace(*Encoder, *Sink, bEachAlone, av_rescale_q(1, {1, 1}, Schedule->TimeBase()));
	return true;
}

bool FOverlayDrawing::DrawFrames(IOverlaySource& InOverlay)
{
	FOverlayClock Clock(InOverlay, Schedule->Shape());
	const int64 From = ToWholeTicks(Options.From.value_or(0.0));
	const bool bOpenEnd = Options.Like.empty() && !Options.To;
	const int64 To = Options.To ? ToWholeTicks(*Options.To) : INT64_MAX;
	for (int64 Index = 0;; ++Index)
	{
		const std::optional<FScheduledFrame> Frame = Schedule->Frame(Index);
		if (!Frame || Frame->Ticks >= To)
		{
			return true;
		}
		const std::span<const FPlacedSprite> Sprites = Clock.Advance(Frame->Ticks);
		if (bOpenEnd && InOverlay.IsOver())
		{
			return true;
		}
		if (Cancel || (Frame->Ticks >= From && !DrawFrame(*Frame, Sprites)))
		{
			return false;
		}
	}
}

bool FOverlayDrawing::DrawFrame(const FScheduledFrame& InFrame, std::span<const FPlacedSprite> InSprites)
{
	First = First ? First : InFrame;
	FFramePtr Picture(av_frame_clone(Blank.get()));
	Picture = Picture ? Painter.Paint(std::move(Picture), InSprites) : nullptr;
	if (!Picture)
	{
		throw std::bad_alloc();
	}
	const bool bBlank = Picture->data[0] == Blank->data[0];
	Picture->pts = InFrame.Stamp - First->Stamp;
	Picture->pkt_duration = InFrame.Duration;
	if (!Saver->Take(*Picture, bBlank, Error))
	{
		return false;
	}
	Tell(InFrame);
	return true;
}

void FOverlayDrawing::Tell(const FScheduledFrame& InFrame)
{
	++State.Frames;
	const int64 Done = InFrame.Stamp + InFrame.Duration - First->Stamp;
	State.DoneSeconds = static_cast<double>(Done) * av_q2d(Schedule->TimeBase());
	Progress.OnFrame(State);
}

bool FOverlayDrawing::Finish()
{
	if (!First)
	{
		Error = Options.Output + ": there is no frame " + (Options.Like.empty() ? "of a comment" : "of the video") +
				" in the part to draw";
		return false;
	}
	if (!Saver->Finish(Error) || Cancel || !Sink->Finish(Error))
	{
		return false;
	}
	if (const std::string Remark = Sink->Remark(); !Remark.empty())
	{
		Progress.OnMessage(Remark);
	}
	return true;
}

} // namespace Flitmark
