#include "VideoTestKit.h"

#include "FrameSource.h"
#include "PixelLayout.h"

#include <gtest/gtest.h>

extern "C"
{
#include <libavutil/adler32.h>
}

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <unistd.h>

namespace Flitmark::Testing
{

FTestFolder::FTestFolder()
{
	std::string Name = (std::filesystem::temp_directory_path() / "flitmark-video-XXXXXX").string();
	Path = mkdtemp(Name.data());
}

FTestFolder::~FTestFolder()
{
	std::error_code Ignored;
	std::filesystem::remove_all(Path, Ignored);
}

size_t FTestFolder::CountFiles() const
{
	return static_cast<size_t>(std::distance(std::filesystem::directory_iterator(Path), {}));
}

namespace
{

const FTestFolder& VideoFolder()
{
	static const FTestFolder Folder;
	return Folder;
}

} // namespace

std::string MakeText(const std::string& InName, const std::string& InText)
{
	const std::string Path = VideoFolder().File(InName);
	std::ofstream(Path) << InText;
	return Path;
}

std::string MakeVideo(const std::string& InName, const std::string& InArguments)
{
	const std::string Path = VideoFolder().File(InName);
	if (!std::filesystem::exists(Path))
	{
		const std::string Command = "ffmpeg -nostdin -v error -y " + InArguments + " " + Path;
		EXPECT_EQ(std::system(Command.c_str()), 0) << Command;
	}
	return Path;
}

std::string PlainVideo()
{
	return MakeVideo("plain.mp4", "-f lavfi -i testsrc2=s=160x120:r=25 -f lavfi -i sine=r=44100 -t 2 -pix_fmt yuv420p "
								  "-c:v libx264 -g 20 -bf 2 -c:a aac -metadata title=Plain");
}

std::string UnevenVideo()
{
	return MakeVideo("uneven.mkv",
					 "-f lavfi -i testsrc2=s=96x64:r=30 -t 2 -vf \"select='not(mod(n,3))+gt(mod(n,7),4)'\" "
					 "-vsync vfr -pix_fmt yuv420p -c:v libx264 -g 10 -bf 2");
}

std::shared_ptr<const FSprite> MakeBox(int32 InWidth, int32 InHeight, uint8 InRed, uint8 InGreen, uint8 InBlue,
									   uint8 InAlpha)
{
	FSprite Sprite;
	Sprite.Width = InWidth;
	Sprite.Height = InHeight;
	for (int32 Index = 0; Index < InWidth * InHeight; ++Index)
	{
		Sprite.Pixels.insert(Sprite.Pixels.end(), {InRed, InGreen, InBlue, InAlpha});
	}
	return std::make_shared<FSprite>(std::move(Sprite));
}

void FMovingBox::Advance(int64 InTicks, double InDeltaSeconds, std::vector<FPlacedSprite>& OutSprites)
{
	Times.push_back(InTicks);
	// The number of steps counts too: a different division into steps would end elsewhere.
	Way += InDeltaSeconds * 40.0 + 0.25;
	if (bVisible)
	{
		OutSprites.push_back({Box, std::fmod(Way, Shape.Width), Shape.Height / 4.0});
	}
}

void FTestProgress::OnFrame(const FBurnState& InState)
{
	Last = InState;
	if (OnEach)
	{
		OnEach();
	}
}

FVideoResult BurnQuietly(const FBurnOptions& InOptions, IOverlaySource& InOverlay, FTestProgress& InProgress)
{
	const std::atomic<bool> Cancel = false;
	return Burn(InOptions, InOverlay, InProgress, Cancel);
}

FVideoResult BurnQuietly(const FBurnOptions& InOptions, IOverlaySource& InOverlay)
{
	FTestProgress Progress;
	return BurnQuietly(InOptions, InOverlay, Progress);
}

std::map<std::string, std::vector<FPacketMark>> ReadPackets(const std::string& InPath)
{
	std::map<std::string, std::vector<FPacketMark>> Marks;
	AVFormatContext* Opened = nullptr;
	if (avformat_open_input(&Opened, InPath.c_str(), nullptr, nullptr) < 0)
	{
		ADD_FAILURE() << InPath;
		return Marks;
	}
	const FInputPtr Input(Opened);
	avformat_find_stream_info(Opened, nullptr);
	for (const FPacketPtr Packet = MakePacket(); av_read_frame(Opened, Packet.get()) >= 0;
		 av_packet_unref(Packet.get()))
	{
		const AVStream& Stream = *Opened->streams[Packet->stream_index];
		const int64 Time = av_rescale_q(Packet->pts, Stream.time_base, {1, AV_TIME_BASE});
		const uint32 Sum = av_adler32_update(1, Packet->data, static_cast<size_t>(Packet->size));
		Marks[av_get_media_type_string(Stream.codecpar->codec_type)].emplace_back(Time, Sum);
	}
	for (auto& [Kind, Packets] : Marks)
	{
		std::sort(Packets.begin(), Packets.end());
	}
	return Marks;
}

std::vector<int64> TimesOf(const std::vector<FPacketMark>& InPackets)
{
	std::vector<int64> Times;
	std::transform(InPackets.begin(), InPackets.end(), std::back_inserter(Times),
				   [](const FPacketMark& InPacket) { return InPacket.first; });
	return Times;
}

std::vector<FFramePtr> ReadFrames(const std::string& InPath)
{
	std::vector<FFramePtr> Frames;
	std::string Error;
	const auto Input = FVideoInput::Open(InPath, Error);
	const auto Decoder = Input ? FVideoDecoder::Open(*Input, 1, Error) : nullptr;
	EXPECT_EQ(Error, "");
	FFramePtr Frame = MakeFrame();
	if (Decoder)
	{
		for (FFrameSource Source(*Input, *Decoder); Source.Next(*Frame); Frame = MakeFrame())
		{
			Frames.push_back(std::move(Frame));
		}
	}
	return Frames;
}

int32 SampleAt(const AVFrame& InFrame, int32 InPlane, int32 InX, int32 InY)
{
	const uint8* const Row = InFrame.data[InPlane] + ptrdiff_t{InY} * InFrame.linesize[InPlane];
	const AVPixFmtDescriptor* const Format = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(InFrame.format));
	return Format->comp[0].depth > 8 ? reinterpret_cast<const uint16*>(Row)[InX] : Row[InX];
}

bool SamePicture(const AVFrame& InFirst, const AVFrame& InSecond)
{
	const auto Layout = FPixelLayout::Of(static_cast<AVPixelFormat>(InFirst.format));
	if (!Layout || InFirst.format != InSecond.format || InFirst.width != InSecond.width ||
		InFirst.height != InSecond.height)
	{
		return false;
	}
	for (int32 Plane = 0; Plane < Layout->PlaneCount; ++Plane)
	{
		const FPlaneLayout& Each = Layout->Planes[static_cast<size_t>(Plane)];
		const int32 Width = AV_CEIL_RSHIFT(InFirst.width, Each.ShiftX) * Each.Components;
		const int32 Bytes = Width * (Layout->Depth > 8 ? 2 : 1);
		for (int32 Row = 0; Row < AV_CEIL_RSHIFT(InFirst.height, Each.ShiftY); ++Row)
		{
			const uint8* const First = InFirst.data[Plane] + ptrdiff_t{Row} * InFirst.linesize[Plane];
			const uint8* const Second = InSecond.data[Plane] + ptrdiff_t{Row} * InSecond.linesize[Plane];
			if (!std::equal(First, First + Bytes, Second))
			{
				return false;
			}
		}
	}
	return true;
}

} // namespace Flitmark::Testing
