#include "FrameSource.h"
#include "Video/VideoProbe.h"
#include "Video/VideoShot.h"
#include "VideoTestKit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sys/stat.h>

namespace Flitmark::Testing
{
namespace
{

std::string BytesOf(const std::string& InPath)
{
	std::ifstream File(InPath, std::ios::binary);
	return {std::istreambuf_iterator<char>(File), {}};
}

/** A video of 50 frames whose time base an attacker chose. */
std::string WithTimeBase(const FTestFolder& InFolder, uint32 InScale, uint32 InRate)
{
	std::string Bytes = BytesOf(MakeVideo("plain.avi", "-i " + PlainVideo() + " -an -c:v mpeg4"));
	// The fifth number of the stream header, after the chunk's name and size.
	const size_t Place = Bytes.find("strh") + 8 + 20;
	std::memcpy(Bytes.data() + Place, &InScale, sizeof(InScale));
	std::memcpy(Bytes.data() + Place + sizeof(InScale), &InRate, sizeof(InRate));
	const std::string Path = InFolder.File("odd.avi");
	std::ofstream(Path, std::ios::binary) << Bytes;
	return Path;
}

/** Records what it is told. */
class FJumpLog final : public IOverlaySource
{
public:
	void Open(const FVideoShape&) override {}
	void Advance(int64 InTicks, double InDeltaSeconds, std::vector<FPlacedSprite>&) override
	{
		Longest = std::max(Longest, InDeltaSeconds);
		Last = InTicks;
	}
	void Jump(int64) override { ++Jumps; }

	double Longest = 0.0;
	int64 Last = 0;
	int32 Jumps = 0;
};

TEST(HostileVideo, ALongGapIsAJumpAndNoStepOfTheOverlay)
{
	struct FCase
	{
		uint32 Scale;
		uint32 Rate;
		int32 Jumps;
	};
	// 40 ms, 10 s, 11 s, 2.7 years, and times beyond any clock.
	for (const FCase& Case :
		 {FCase{1, 25, 0}, FCase{10, 1, 0}, FCase{11, 1, 49}, FCase{2130706433, 25, 12}, FCase{2147483647, 1, 1}})
	{
		SCOPED_TRACE(Case.Scale);
		const FTestFolder Folder;
		FBurnOptions Options;
		Options.Input = WithTimeBase(Folder, Case.Scale, Case.Rate);
		Options.Output = Folder.File("out.mkv");
		Options.Preset = "ultrafast";
		FJumpLog Overlay;
		const FVideoResult Result = BurnQuietly(Options, Overlay);
		ASSERT_TRUE(Result.IsDone()) << Result.Error;
		EXPECT_LE(Overlay.Longest, 10.0);
		EXPECT_EQ(Overlay.Jumps, Case.Jumps);
		EXPECT_LE(Overlay.Last, int64{1'000'000'000} * TicksPerSecond);
		EXPECT_EQ(ReadFrames(Options.Output).size(), 50u);
	}
}

TEST(HostileVideo, NothingIsReadOnceCanceled)
{
	std::atomic<bool> Cancel = false;
	std::string Error;
	const auto Input = FVideoInput::Open(PlainVideo(), Error, &Cancel);
	ASSERT_TRUE(Input) << Error;
	const FPacketPtr Packet = MakePacket();
	ASSERT_TRUE(Input->Read(*Packet));
	av_packet_unref(Packet.get());
	Cancel = true;
	EXPECT_FALSE(Input->Read(*Packet));
	EXPECT_EQ(FVideoInput::Open(PlainVideo(), Error, &Cancel), nullptr);
	EXPECT_EQ(ScanFrameTimes(PlainVideo(), INT64_MAX, Error, &Cancel), std::nullopt);
}

/** Whatever its name, a list of other files must not bring any of them into the picture. */
TEST(HostileVideo, OnlyTheFileNamedIsOpened)
{
	const FTestFolder Folder;
	const std::string Other = MakeVideo("other.ts", "-i " + PlainVideo() + " -c:v copy -an");
	const std::string Lists[] = {
		"ffconcat version 1.0\nfile " + Other + "\n",
		"#EXTM3U\n#EXT-X-TARGETDURATION:2\n#EXTINF:2,\n" + Other + "\n#EXT-X-ENDLIST\n",
	};
	for (const std::string& List : Lists)
	{
		for (const char* const Name : {"film.mp4", "film.mkv", "film.m3u8"})
		{
			SCOPED_TRACE(List.substr(0, 8) + " as " + Name);
			FBurnOptions Options;
			Options.Input = Folder.File(Name);
			Options.Output = Folder.File("out.mkv");
			std::ofstream(Options.Input) << List;
			FMovingBox Overlay;
			EXPECT_NE(BurnQuietly(Options, Overlay).Error.find("--allow-playlists"), std::string::npos);
			std::string Error;
			EXPECT_FALSE(Probe(Options.Input, Error));
			FShotOptions ShotOptions;
			ShotOptions.Input = Options.Input;
			ShotOptions.Output = Folder.File("out.png");
			EXPECT_FALSE(Shot(ShotOptions, Overlay).IsDone());
			EXPECT_FALSE(std::filesystem::exists(ShotOptions.Output) || std::filesystem::exists(Options.Output));
		}
	}
	// FFmpeg itself would refuse the absolute path in the first list, but not this one.
	std::filesystem::copy_file(Other, Folder.File("other.ts"));
	FBurnOptions Options;
	Options.Input = Folder.File("film.mp4");
	Options.Output = Folder.File("out.mkv");
	std::ofstream(Options.Input) << "ffconcat version 1.0\nfile other.ts\n";
	FMovingBox Overlay;
	EXPECT_NE(BurnQuietly(Options, Overlay).Error.find("--allow-playlists"), std::string::npos);
	Options.bAllowPlaylists = true;
	const FVideoResult Allowed = BurnQuietly(Options, Overlay);
	EXPECT_TRUE(Allowed.IsDone()) << Allowed.Error;
}

TEST(HostileVideo, APipeOrADeviceIsRefusedAtOnce)
{
	const FTestFolder Folder;
	ASSERT_EQ(mkfifo(Folder.File("pipe.mp4").c_str(), 0600), 0);
	for (const std::string& Path : {Folder.File("pipe.mp4"), std::string("/dev/zero")})
	{
		std::string Error;
		EXPECT_FALSE(Probe(Path, Error));
		EXPECT_NE(Error.find(Path + ": is a pipe or a device"), std::string::npos) << Error;
	}
}

TEST(HostileVideo, AttachmentsGoWhereTheContainerTakesThem)
{
	const FTestFolder Folder;
	const std::string Font = MakeText("font.ttf", "glyphs " + std::string(5'000, 'x'));
	const std::string Odd = MakeText("odd.bin", "a kind of its own");
	const std::string Input =
		MakeVideo("fonts.mkv", "-i " + PlainVideo() + " -c copy -attach " + Font +
								   " -metadata:s:t:0 mimetype=application/x-truetype-font -attach " + Odd +
								   " -metadata:s:t:1 mimetype=application/x-odd");
	for (const auto& [Name, Codec, bHeld] : {std::tuple("out.mkv", "libx264", true),
											 {"out.mp4", "libx264", false},
											 {"out.webm", "libvpx", false},
											 {"out.ts", "libx264", false}})
	{
		SCOPED_TRACE(Name);
		FBurnOptions Options;
		Options.Input = Input;
		Options.Output = Folder.File(Name);
		Options.Codec = Codec;
		FMovingBox Overlay;
		FTestProgress Progress;
		const FVideoResult Result = BurnQuietly(Options, Overlay, Progress);
		ASSERT_TRUE(Result.IsDone()) << Result.Error;
		const std::string Made = BytesOf(Options.Output);
		EXPECT_EQ(Made.find(BytesOf(Font)) != std::string::npos, bHeld);
		EXPECT_EQ(Made.find(BytesOf(Odd)) != std::string::npos, bHeld);
		EXPECT_EQ(Progress.Messages.find("(attachment, ") == std::string::npos, bHeld) << Progress.Messages;
	}
}

TEST(HostileVideo, InterlacedFramesStayInterlacedOrItIsSaid)
{
	const std::string Input =
		MakeVideo("fields.mpg", "-f lavfi -i testsrc2=s=160x120:r=50 -t 1 -vf interlace=scan=bff -c:v mpeg2video "
								"-flags +ildct+ilme -pix_fmt yuv420p -q:v 2");
	for (const auto& [Name, Codec, bKept] :
		 {std::tuple("out.mp4", "libx264", true), {"out.mov", "prores_ks", true}, {"out.mkv", "libvpx-vp9", false}})
	{
		SCOPED_TRACE(Codec);
		const FTestFolder Folder;
		FBurnOptions Options;
		Options.Input = Input;
		Options.Output = Folder.File(Name);
		Options.Codec = Codec;
		FMovingBox Overlay;
		FTestProgress Progress;
		const FVideoResult Result = BurnQuietly(Options, Overlay, Progress);
		ASSERT_TRUE(Result.IsDone()) << Result.Error;
		const std::vector<FFramePtr> Frames = ReadFrames(Options.Output);
		ASSERT_EQ(Frames.size(), 25u);
		const bool bFields =
			std::ranges::all_of(Frames, [](const FFramePtr& InFrame)
								{ return InFrame->interlaced_frame != 0 && !InFrame->top_field_first; });
		EXPECT_EQ(bFields, bKept);
		EXPECT_EQ(Progress.Messages.find("is interlaced, but libvpx-vp9") == std::string::npos, bKept)
			<< Progress.Messages;
	}
}

TEST(HostileVideo, AnEndThatIsNotReachedIsSaid)
{
	const FTestFolder Folder;
	const std::string Cut = Folder.File("cut.mp4");
	std::filesystem::copy_file(MakeVideo("early.mp4",
										 "-f lavfi -i testsrc2=s=160x120:r=25 -t 8 -c:v libx264 -g 5 -pix_fmt yuv420p "
										 "-movflags +faststart"),
							   Cut);
	std::filesystem::resize_file(Cut, std::filesystem::file_size(Cut) / 2);
	for (const auto& [Input, To, Said] : {std::tuple(Cut, 7.5, "truncated"),
										  {Cut, 1.0, ""},
										  {PlainVideo(), 9.0, "before the end asked for, 9.000 s"},
										  {PlainVideo(), 2.0, ""}})
	{
		SCOPED_TRACE(To);
		FBurnOptions Options;
		Options.Input = Input;
		Options.Output = Folder.File("out.mp4");
		Options.To = To;
		FMovingBox Overlay;
		FTestProgress Progress;
		const FVideoResult Result = BurnQuietly(Options, Overlay, Progress);
		ASSERT_TRUE(Result.IsDone()) << Result.Error;
		EXPECT_EQ(Progress.Messages.empty(), *Said == '\0') << Progress.Messages;
		EXPECT_NE(Progress.Messages.find(Said), std::string::npos) << Progress.Messages;
	}
}

TEST(HostileVideo, AnEncoderThatNeedsADeviceSaysSo)
{
	const FTestFolder Folder;
	for (const auto& [Codec, Said] : {std::pair("h264_vaapi", "a device's memory"),
									  {"hevc_vaapi", "a device's memory"},
									  {"h264_nvenc", "it needs a device"},
									  {"h264_v4l2m2m", "it needs a device"}})
	{
		if (avcodec_find_encoder_by_name(Codec) != nullptr)
		{
			FBurnOptions Options;
			Options.Input = PlainVideo();
			Options.Output = Folder.File("out.mkv");
			Options.Codec = Codec;
			FMovingBox Overlay;
			const std::string Error = BurnQuietly(Options, Overlay).Error;
			EXPECT_TRUE(Error.find(Codec) != std::string::npos && Error.find(Said) != std::string::npos) << Error;
		}
	}
}

} // namespace
} // namespace Flitmark::Testing
