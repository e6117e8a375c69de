#include "Video/VideoShot.h"

#include "FramePainter.h"
#include "FrameSource.h"
#include "OverlayClock.h"
#include "Picture.h"
#include "Files/ExceptionText.h"
#include "Files/TemporaryFile.h"

#include <cmath>
#include <cstdio>
#include <exception>
#include <utility>

namespace Flitmark
{

namespace
{

constexpr double LongestSeconds = 1e9;

std::string Seconds(int64 InTicks)
{
	char Text[64];
	snprintf(Text, sizeof(Text), "%.3f s", static_cast<double>(InTicks) / static_cast<double>(TicksPerSecond));
	return Text;
}

/** The last frame at or before InTicks, or the first of all; null where none can be decoded. */
FFramePtr FrameAt(FVideoInput& InInput, FVideoDecoder& InDecoder, int64 InTicks)
{
	FFrameSource Source(InInput, InDecoder);
	FFramePtr Shown;
	FFramePtr Frame = MakeFrame();
	while (Source.Next(*Frame))
	{
		if (Shown && InInput.ToTicks(Frame->pts) > InTicks)
		{
			break;
		}
		Shown = std::exchange(Frame, MakeFrame());
	}
	return Shown;
}

FVideoResult TakeShot(const FShotOptions& InOptions, IOverlaySource& InOverlay)
{
	const int64 At = std::llround(InOptions.At * static_cast<double>(TicksPerSecond));
	const FVideoFile File(InOptions.Input, InOptions.bAllowPlaylists);
	std::string Error;
	const auto Times = ScanFrameTimes(File, At, Error);
	if (!Times)
	{
		return FVideoResult::Fail(Error);
	}
	if (Times->EndTicks && At >= std::max<int64>(1, *Times->EndTicks))
	{
		return FVideoResult::Fail(InOptions.Input + ": is only " + Seconds(*Times->EndTicks) +
								  " long; there is no frame at " + Seconds(At));
	}
	const auto Input = OpenVideoAt(File, At, Error);
	const auto Decoder = Input ? FVideoDecoder::Open(*Input, InOptions.Threads, Error) : nullptr;
	if (!Decoder)
	{
		return FVideoResult::Fail(Error);
	}
	FFramePtr Frame = FrameAt(*Input, *Decoder, At);
	if (!Frame)
	{
		return FVideoResult::Fail(InOptions.Input + ": no frame could be decoded at " + Seconds(At));
	}
	const int64 Shown = Input->ToTicks(Frame->pts);
	FOverlayClock Clock(InOverlay, Input->Shape());
	for (size_t Index = 0; Index < Times->Ticks.size() && Times->Ticks[Index] < Shown; ++Index)
	{
		Clock.Advance(Times->Ticks[Index]);
	}
	FFramePainter Painter(Input->Orientation());
	Painter.Start(FPixelLayout::Nearest(WithoutImpliedRange(static_cast<AVPixelFormat>(Frame->format))), Frame->width,
				  Frame->height);
	Frame->sample_aspect_ratio = av_guess_sample_aspect_ratio(&Input->Format(), &Input->Video(), Frame.get());
	Frame = Painter.Paint(std::move(Frame), Clock.Advance(Shown));
	if (!Frame || !WritePicture(*Frame, Input->Orientation(), InOptions.Output, Error))
	{
		return FVideoResult::Fail(Frame ? Error : InOptions.Input + ": its pixel format cannot be painted into");
	}
	return {};
}

} // namespace

FVideoResult Shot(const FShotOptions& InOptions, IOverlaySource& InOverlay)
try
{
	if (!(InOptions.At >= 0.0 && InOptions.At <= LongestSeconds))
	{
		return FVideoResult::Fail("the time must be 0 seconds or later");
	}
	if (const std::string Obstacle = OutputObstacle(InOptions.Input, InOptions.Output); !Obstacle.empty())
	{
		return FVideoResult::Fail(Obstacle);
	}
	return TakeShot(InOptions, InOverlay);
}
catch (const std::exception& Exception)
{
	return FVideoResult::Fail(InOptions.Input + ": the picture could not be made: " + ExplainException(Exception));
}

} // namespace Flitmark
