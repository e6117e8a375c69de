#include "VideoInput.h"

#include "AvErrors.h"

extern "C"
{
#include <libavutil/common.h>
#include <libavutil/display.h>
}

#include <algorithm>
#include <filesystem>
#include <new>
#include <system_error>
#include <utility>

namespace Flitmark
{

namespace
{

/** Why a path cannot be a video to read; empty where FFmpeg is to say. */
std::string FileObstacle(const std::string& InPath)
{
	using EKind = std::filesystem::file_type;
	std::error_code Ignored;
	const EKind Kind = std::filesystem::status(InPath, Ignored).type();
	const bool bEndless = Kind == EKind::fifo || Kind == EKind::socket || Kind == EKind::character;
	return bEndless ? InPath + ": is a pipe or a device; a video is read more than once, so save it as a file first"
					: std::string();
}

int IsCanceled(void* InCancel)
{
	return static_cast<const std::atomic<bool>*>(InCancel)->load() ? 1 : 0;
}

AVIOInterruptCB InterruptBy(const std::atomic<bool>* InCancel)
{
	// FFmpeg hands the pointer back as it is.
	return {InCancel != nullptr ? &IsCanceled : nullptr, const_cast<std::atomic<bool>*>(InCancel)};
}

std::string ReadError(const FVideoFile& InFile, const char* InWhat, int InCode)
{
	const std::string Reason = FAvLog::Explain(InCode);
	// What FFmpeg logs on refusing a protocol, and on refusing a name beforehand.
	const bool bRefused = !InFile.bAllowPlaylists && (Reason.find("not on whitelist") != std::string::npos ||
													  Reason.find("Unsafe file name") != std::string::npos);
	return bRefused ? InFile.Path + ": is a list of other files, which are not opened; if you trust it, give "
									"--allow-playlists"
					: InFile.Path + ": " + InWhat + ": " + Reason;
}

/** Opens the container; null with OutError set. OutBytes: what it reads from, if it may open nothing itself. */
FInputPtr OpenContainer(const FVideoFile& InFile, const std::atomic<bool>* InCancel, FBytesPtr& OutBytes,
						std::string& OutError)
{
	// The prefix keeps a colon in a name from being read as a protocol.
	const std::string Url = "file:" + InFile.Path;
	const AVIOInterruptCB Interrupt = InterruptBy(InCancel);
	AVFormatContext* Context = avformat_alloc_context();
	if (Context == nullptr)
	{
		throw std::bad_alloc();
	}
	Context->interrupt_callback = Interrupt;
	int Code = 0;
	if (!InFile.bAllowPlaylists)
	{
		AVIOContext* Bytes = nullptr;
		Code = avio_open2(&Bytes, Url.c_str(), AVIO_FLAG_READ, &Interrupt, nullptr);
		OutBytes.reset(Bytes);
		Context->pb = Bytes;
		// No protocol at all: whichever demuxer it is, it opens no other file.
		Context->protocol_whitelist = av_strdup("");
	}
	if (Code < 0)
	{
		avformat_free_context(Context);
	}
	else
	{
		// Frees the context where it fails.
		Code = avformat_open_input(&Context, Url.c_str(), nullptr, nullptr);
	}
	if (Code < 0)
	{
		OutError = ReadError(InFile, "cannot be read as a video", Code);
		return nullptr;
	}
	return FInputPtr(Context);
}

} // namespace

std::unique_ptr<FVideoInput> FVideoInput::Open(const FVideoFile& InFile, std::string& OutError,
											   const std::atomic<bool>* InCancel)
{
	OutError = FileObstacle(InFile.Path);
	if (!OutError.empty())
	{
		return nullptr;
	}
	FAvLog::Start();
	FBytesPtr Bytes;
	FInputPtr Handle = OpenContainer(InFile, InCancel, Bytes, OutError);
	if (!Handle)
	{
		return nullptr;
	}
	const int InfoCode = avformat_find_stream_info(Handle.get(), nullptr);
	if (InfoCode < 0)
	{
		OutError = ReadError(InFile, "its streams cannot be read", InfoCode);
		return nullptr;
	}
	const int Index = av_find_best_stream(Handle.get(), AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
	if (Index < 0 || (Handle->streams[Index]->disposition & AV_DISPOSITION_ATTACHED_PIC) != 0)
	{
		OutError = InFile.Path + ": has no video stream";
		return nullptr;
	}
	const AVCodecParameters& Video = *Handle->streams[Index]->codecpar;
	if (Video.width <= 0 || Video.height <= 0)
	{
		OutError = InFile.Path + ": the size of its video cannot be determined; the file is damaged or truncated";
		return nullptr;
	}
	const auto VideoIndex = static_cast<unsigned>(Index);
	return std::unique_ptr<FVideoInput>(new FVideoInput(std::move(Bytes), std::move(Handle), VideoIndex));
}

FVideoInput::FVideoInput(FBytesPtr InBytes, FInputPtr InHandle, unsigned InVideoIndex)
	: Bytes(std::move(InBytes))
	, Handle(std::move(InHandle))
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
	return Handle->start_time != AV_NOPTS_VALUE ? av_rescale_q(Handle->start_time, {1, AV_TIME_BASE}, TickBase) : 0;
}

int64 FVideoInput::ToTicks(int64 InTimestamp, AVRational InBase) const
{
	return std::max<int64>(0, av_sat_sub64(av_rescale_q(InTimestamp, InBase, TickBase), StartTicks()));
}

int64 FVideoInput::ToTimestamp(int64 InTicks) const
{
	return av_rescale_q(av_sat_add64(InTicks, StartTicks()), TickBase, Video().time_base);
}

bool FVideoInput::Read(AVPacket& OutPacket)
{
	// Some containers fail at the same spot forever.
	constexpr int32 MostInARow = 64;
	const AVIOInterruptCB& Interrupt = Handle->interrupt_callback;
	for (int32 Tries = 0; Tries < MostInARow; ++Tries)
	{
		// FFmpeg looks only when it needs more bytes.
		if (Interrupt.callback != nullptr && Interrupt.callback(Interrupt.opaque) != 0)
		{
			return false;
		}
		const int Code = av_read_frame(Handle.get(), &OutPacket);
		if (Code >= 0)
		{
			Broken += (OutPacket.flags & AV_PKT_FLAG_CORRUPT) != 0 ? 1 : 0;
			return true;
		}
		if (Code == AVERROR_EOF || Code == AVERROR_EXIT)
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

std::optional<FFrameTimes> ScanFrameTimes(const FVideoFile& InFile, int64 InTicks, std::string& OutError,
										  const std::atomic<bool>* InCancel)
{
	const auto Input = FVideoInput::Open(InFile, OutError, InCancel);
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
			End = std::max(End, av_sat_add64(Times.Ticks.back(), Shown));
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
