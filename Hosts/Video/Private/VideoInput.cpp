#include "VideoInput.h"

#include "AvErrors.h"

extern "C"
{
#include <libavutil/display.h>
}

#include <algorithm>
#include <utility>

namespace Flitmark
{

std::unique_ptr<FVideoInput> FVideoInput::Open(const std::string& InPath, std::string& OutError)
{
	FAvLog::Start();
	AVFormatContext* Opened = nullptr;
	// The prefix keeps a colon in a name from being read as a protocol.
	const int Code = avformat_open_input(&Opened, ("file:" + InPath).c_str(), nullptr, nullptr);
	if (Code < 0)
	{
		OutError = InPath + ": cannot be read as a video: " + FAvLog::Explain(Code);
		return nullptr;
	}
	FInputPtr Handle(Opened);
	const int InfoCode = avformat_find_stream_info(Opened, nullptr);
	if (InfoCode < 0)
	{
		OutError = InPath + ": its streams cannot be read: " + FAvLog::Explain(InfoCode);
		return nullptr;
	}
	const int Index = av_find_best_stream(Opened, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
	if (Index < 0 || (Opened->streams[Index]->disposition & AV_DISPOSITION_ATTACHED_PIC) != 0)
	{
		OutError = InPath + ": has no video stream";
		return nullptr;
	}
	const AVCodecParameters& Video = *Opened->streams[Index]->codecpar;
	if (Video.width <= 0 || Video.height <= 0)
	{
		OutError = InPath + ": the size of its video cannot be determined; the file is damaged or truncated";
		return nullptr;
	}
	return std::unique_ptr<FVideoInput>(new FVideoInput(std::move(Handle), static_cast<unsigned>(Index)));
}

FVideoInput::FVideoInput(FInputPtr InHandle, unsigned InVideoIndex)
	: Handle(std::move(InHandle))
	, VideoIndex(InVideoIndex)
{
}

FOrientation FVideoInput::Orientation() const
{
	const uint8* const Data = av_stream_get_side_data(&Video(), AV_PKT_DATA_DISPLAYMATRIX, nullptr);
	return FOrientation::FromDisplayMatrix(reinterpret_cast<const int32*>(Data));
}

FVideoShape FVideoInput::Shape() const
{
	const AVRational Rate = FrameRateOf(Video());
	const AVRational Aspect = av_guess_sample_aspect_ratio(Handle.get(), &Video(), nullptr);
	FVideoShape Shape;
	Shape.Width = Video().codecpar->width;
	Shape.Height = Video().codecpar->height;
	Shape.PixelAspect = Aspect.num > 0 && Aspect.den > 0 ? av_q2d(Aspect) : 1.0;
	Shape.FrameRate = Rate.num > 0 ? av_q2d(Rate) : 0.0;
	if (Orientation().bTranspose)
	{
		std::swap(Shape.Width, Shape.Height);
		Shape.PixelAspect = 1.0 / Shape.PixelAspect;
	}
	return Shape;
}

double FVideoInput::DurationSeconds() const
{
	if (Video().duration != AV_NOPTS_VALUE && Video().duration > 0)
	{
		return static_cast<double>(Video().duration) * av_q2d(Video().time_base);
	}
	const int64 Duration = Handle->duration;
	return Duration > 0 ? static_cast<double>(Duration) / AV_TIME_BASE : 0.0;
}

int64 FVideoInput::StartTicks() const
{
	return Handle->start_time != AV_NOPTS_VALUE ? Handle->start_time * (TicksPerSecond / AV_TIME_BASE) : 0;
}

int64 FVideoInput::ToTicks(int64 InTimestamp, AVRational InBase) const
{
	return std::max<int64>(0, av_rescale_q(InTimestamp, InBase, TickBase) - StartTicks());
}

int64 FVideoInput::ToTimestamp(int64 InTicks) const
{
	return av_rescale_q(InTicks + StartTicks(), TickBase, Video().time_base);
}

bool FVideoInput::Read(AVPacket& OutPacket)
{
	// Some containers fail at the same spot forever.
	constexpr int32 MostInARow = 64;
	for (int32 Tries = 0; Tries < MostInARow; ++Tries)
	{
		const int Code = av_read_frame(Handle.get(), &OutPacket);
		if (Code >= 0)
		{
			Broken += (OutPacket.flags & AV_PKT_FLAG_CORRUPT) != 0 ? 1 : 0;
			return true;
		}
		if (Code == AVERROR_EOF)
		{
			return false;
		}
		++Broken;
	}
	return false;
}

bool FVideoInput::Seek(int64 InTimestamp)
{
	return av_seek_frame(Handle.get(), static_cast<int>(VideoIndex), InTimestamp, AVSEEK_FLAG_BACKWARD) >= 0;
}

void FVideoInput::ReadVideoOnly()
{
	for (unsigned Index = 0; Index < Handle->nb_streams; ++Index)
	{
		if (Index != VideoIndex)
		{
			Handle->streams[Index]->discard = AVDISCARD_ALL;
		}
	}
}

std::optional<FFrameTimes> ScanFrameTimes(const std::string& InPath, int64 InTicks, std::string& OutError)
{
	const auto Input = FVideoInput::Open(InPath, OutError);
	if (!Input)
	{
		return std::nullopt;
	}
	Input->ReadVideoOnly();
	FFrameTimes Times;
	int64 End = 0;
	bool bMore = true;
	for (const FPacketPtr Packet = MakePacket(); bMore; av_packet_unref(Packet.get()))
	{
		if (!Input->Read(*Packet))
		{
			Times.EndTicks = End;
			break;
		}
		const int64 Stamp = Packet->pts != AV_NOPTS_VALUE ? Packet->pts : Packet->dts;
		if (Packet->stream_index != Input->Video().index || Stamp == AV_NOPTS_VALUE)
		{
			continue;
		}
		// Packets that an edit list removes are decoded but never shown.
		if ((Packet->flags & AV_PKT_FLAG_DISCARD) == 0)
		{
			const int64 Shown = Packet->duration > 0
									? av_rescale_q(Packet->duration, Input->Video().time_base, TickBase)
									: UsualFrameTicks(Input->Video());
			Times.Ticks.push_back(Input->ToTicks(Stamp));
			End = std::max(End, Times.Ticks.back() + Shown);
		}
		// No frame is shown before its decoding time.
		bMore = Packet->dts == AV_NOPTS_VALUE || Input->ToTicks(Packet->dts) <= InTicks;
	}
	std::sort(Times.Ticks.begin(), Times.Ticks.end());
	Times.Ticks.erase(std::unique(Times.Ticks.begin(), Times.Ticks.end()), Times.Ticks.end());
	return Times;
}

AVRational FrameRateOf(const AVStream& InStream)
{
	for (const AVRational Rate : {InStream.avg_frame_rate, InStream.r_frame_rate})
	{
		if (Rate.num > 0 && Rate.den > 0)
		{
			return Rate;
		}
	}
	return {0, 1};
}

int64 UsualFrameTicks(const AVStream& InStream)
{
	const AVRational Rate = FrameRateOf(InStream);
	return Rate.num > 0 ? av_rescale(TicksPerSecond, Rate.den, Rate.num) : TicksPerSecond / 30;
}

} // namespace Flitmark
