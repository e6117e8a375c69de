#include "VideoInput.h"
#include "Video/VideoProbe.h"
#include "VideoTestKit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace Flitmark::Testing
{
namespace
{

struct FTimesCase
{
	const char* Name;
	std::string (*Make)();
	const char* Output;

	/** How much the container's clock may round, in microseconds. */
	int64 Slack;

	/** How much earlier the output's times are, in microseconds. */
	int64 Shift;
};

std::string SubtitledVideo()
{
	const std::string Titles =
		MakeText("titles.srt", "1\n00:00:00,500 --> 00:00:00,900\nHello\n\n2\n00:00:01,000 --> 00:00:01,500\nYou\n\n");
	return MakeVideo("titled.mkv", "-f lavfi -i testsrc2=s=64x48:r=24000/1001 -f lavfi -i sine -i " + Titles +
									   " -t 2 -c:v libx264 -pix_fmt yuv420p -c:a libopus -c:s srt");
}

std::string UnevenMp4()
{
	return MakeVideo("uneven.mp4", "-i " + UnevenVideo() + " -vsync passthrough -c:v libx264 -bf 3");
}

std::string BroadcastVideo()
{
	return MakeVideo("air.ts", "-f lavfi -i testsrc2=s=64x48:r=25 -f lavfi -i sine -t 1 -c:v libx264 -bf 2 "
							   "-pix_fmt yuv420p -c:a mp2 -output_ts_offset 100");
}

class BurnTimes : public testing::TestWithParam<FTimesCase>
{
};

TEST_P(BurnTimes, FramesAndCopiedPacketsKeepTheirs)
{
	const FTimesCase& Case = GetParam();
	const FTestFolder Folder;
	FBurnOptions Options;
	Options.Input = Case.Make();
	Options.Output = Folder.File(Case.Output);
	Options.Preset = "ultrafast";
	FMovingBox Overlay;
	FTestProgress Progress;
	const FVideoResult Result = BurnQuietly(Options, Overlay, Progress);
	ASSERT_TRUE(Result.IsDone()) << Result.Error;
	EXPECT_EQ(Progress.Messages, "");
	auto Before = ReadPackets(Options.Input);
	auto After = ReadPackets(Options.Output);
	ASSERT_EQ(Before.size(), After.size());
	EXPECT_EQ(static_cast<size_t>(Progress.Last.Frames), Before["video"].size());
	EXPECT_EQ(Overlay.Times.size(), Before["video"].size());
	for (auto& [Kind, Packets] : Before)
	{
		ASSERT_EQ(Packets.size(), After[Kind].size()) << Kind;
		for (size_t Index = 0; Index < Packets.size(); ++Index)
		{
			const int64 Off = Packets[Index].first - Case.Shift - After[Kind][Index].first;
			ASSERT_LE(std::abs(Off), Case.Slack) << Kind << " " << Index;
			ASSERT_TRUE(Kind == "video" || Packets[Index].second == After[Kind][Index].second) << Kind << " " << Index;
		}
	}
	std::string Error;
	const double Start = Probe(Options.Input, Error)->StartSeconds * 1e6;
	for (size_t Index = 0; Index < Overlay.Times.size(); ++Index)
	{
		ASSERT_LE(std::abs(Overlay.Times[Index] - (Before["video"][Index].first - std::llround(Start)) * 10), 20)
			<< Index;
	}
	EXPECT_EQ(Folder.CountFiles(), 1u);
}

// Broadcast streams start at any time; MPEG-TS stores audio and video times in 1/90000 s.
INSTANTIATE_TEST_SUITE_P(Containers, BurnTimes,
						 testing::Values(FTimesCase{"plain", &PlainVideo, "o.mp4", 0, 0},
										 FTimesCase{"toMkv", &UnevenMp4, "o.mkv", 1000, 0},
										 FTimesCase{"uneven", &UnevenVideo, "o.mkv", 0, 0},
										 FTimesCase{"unevenMp4", &UnevenMp4, "o.mp4", 0, 0},
										 FTimesCase{"titled", &SubtitledVideo, "o.mkv", 0, 0},
										 FTimesCase{"broadcast", &BroadcastVideo, "o.mp4", 30, 101'389'089}),
						 [](const auto& InInfo) { return InInfo.param.Name; });

TEST(Burn, OnlyWhatACommentCoversChanges)
{
	const FTestFolder Folder;
	struct FCase
	{
		const char* Format;
		const char* Size;
	};
	constexpr FCase Cases[] = {{"yuv420p", "161x121"},
							   {"yuv420p10le", "96x64"},
							   {"yuv422p", "95x63"},
							   {"yuv444p10le", "64x48"},
							   {"yuvj420p", "96x64"}};
	for (const FCase& Case : Cases)
	{
		FBurnOptions Options;
		Options.Input =
			MakeVideo(std::string(Case.Format) + ".mkv", std::string("-f lavfi -i testsrc2=r=10:s=") + Case.Size +
															 " -t 1 -c:v ffv1 -pix_fmt " + Case.Format);
		Options.Output = Folder.File("out.mkv");
		Options.Codec = "ffv1";
		FMovingBox Overlay;
		FTestProgress Progress;
		ASSERT_TRUE(BurnQuietly(Options, Overlay, Progress).IsDone());
		EXPECT_EQ(Progress.Messages, "") << Case.Format;
		const auto Before = ReadFrames(Options.Input);
		const auto After = ReadFrames(Options.Output);
		ASSERT_EQ(Before.size(), After.size());
		FMovingBox Same;
		Same.Open(Overlay.Shape);
		for (size_t Frame = 0; Frame < Before.size(); ++Frame)
		{
			std::vector<FPlacedSprite> Sprites;
			Same.Advance(0, Frame == 0 ? 0.0 : 0.1, Sprites);
			const int32 Left = static_cast<int32>(std::floor(Sprites[0].X + 0.5));
			const int32 Top = static_cast<int32>(std::floor(Sprites[0].Y + 0.5));
			for (int32 Index = 0; Index < After[Frame]->width * After[Frame]->height; ++Index)
			{
				const int32 X = Index % After[Frame]->width;
				const int32 Y = Index / After[Frame]->width;
				const bool bInside = X >= Left && X < Left + 13 && Y >= Top && Y < Top + 9;
				const bool bSame = SampleAt(*Before[Frame], 0, X, Y) == SampleAt(*After[Frame], 0, X, Y);
				ASSERT_TRUE(bInside || bSame) << Case.Format << " " << Frame << ": " << X << ", " << Y;
			}
			EXPECT_FALSE(SamePicture(*Before[Frame], *After[Frame])) << Case.Format << " " << Frame;
		}
	}
}

TEST(Burn, WithoutCommentsEveryFrameStaysAsItWas)
{
	const FTestFolder Folder;
	FBurnOptions Options;
	Options.Input = PlainVideo();
	Options.Output = Folder.File("out.mkv");
	Options.Codec = "ffv1";
	FMovingBox Overlay;
	Overlay.bVisible = false;
	ASSERT_TRUE(BurnQuietly(Options, Overlay).IsDone());
	const auto Before = ReadFrames(Options.Input);
	const auto After = ReadFrames(Options.Output);
	ASSERT_EQ(Before.size(), After.size());
	EXPECT_TRUE(std::equal(Before.begin(), Before.end(), After.begin(),
						   [](const FFramePtr& InOne, const FFramePtr& InOther)
						   { return SamePicture(*InOne, *InOther); }));
}

/** A red box in the top-left corner of the upright picture, nothing else. */
class FCornerBox final : public IOverlaySource
{
public:
	void Open(const FVideoShape& InShape) override { Shape = InShape; }
	void Advance(int64, double, std::vector<FPlacedSprite>& OutSprites) override
	{
		OutSprites.push_back({Box, 0.0, 0.0});
	}
	FVideoShape Shape;
	std::shared_ptr<const FSprite> Box = MakeBox(24, 8, 255, 0, 0);
};

TEST(Burn, CommentsStandUprightInATurnedVideo)
{
	const std::string Flat = MakeVideo("grey.mp4", "-f lavfi -i color=gray:s=96x64:r=10 -t 0.5 -c:v libx264");
	for (const int32 Angle : {0, 90, 180, 270})
	{
		const std::string Name = std::to_string(Angle);
		const FTestFolder Folder;
		FBurnOptions Options;
		Options.Input = MakeVideo("turned" + Name + ".mp4", "-i " + Flat + " -c copy -metadata:s:v rotate=" + Name);
		Options.Output = Folder.File("out.mp4");
		Options.Crf = 0.0;
		FCornerBox Overlay;
		const FVideoResult Result = BurnQuietly(Options, Overlay);
		ASSERT_TRUE(Result.IsDone()) << Result.Error;
		EXPECT_EQ(Overlay.Shape.Width, Angle % 180 == 0 ? 96 : 64);
		// ffmpeg rotates its input as players do.
		const auto Frames = ReadFrames(MakeVideo("upright" + Name + ".mkv", "-i " + Options.Output + " -c:v ffv1"));
		ASSERT_EQ(Frames[0]->width, Overlay.Shape.Width);
		for (int32 Index = 0; Index < 96 * 64; ++Index)
		{
			const int32 X = Index % Frames[0]->width;
			const int32 Y = Index / Frames[0]->width;
			ASSERT_EQ(SampleAt(*Frames[0], 2, X / 2, Y / 2) > 200, X < 24 && Y < 8) << Angle << ": " << X << ", " << Y;
		}
		Options.Output = Folder.File("out.mkv");
		FTestProgress Progress;
		ASSERT_TRUE(BurnQuietly(Options, Overlay, Progress).IsDone());
		EXPECT_EQ(Progress.Messages.find("cannot store rotation") != std::string::npos, Angle != 0)
			<< Progress.Messages;
	}
}

TEST(Burn, TagsChaptersAndShapeStay)
{
	const FTestFolder Folder;
	const std::string Chapters = MakeText("chapters.txt", ";FFMETADATA1\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\nEND=500\n"
														  "title=One\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=500\nEND=2000\n"
														  "title=Two\n");
	FBurnOptions Options;
	Options.Input = MakeVideo(
		"tagged.mp4",
		"-f lavfi -i testsrc2=s=64x48:r=25 -f lavfi -i sine -i " + Chapters +
			" -map 0 -map 1 -map_metadata 2 -metadata title=Tale -metadata:s:a language=fra -t 2 -c:v libx265 -pix_fmt "
			"yuv420p10le -vf setsar=4/3 -color_primaries bt2020 -color_trc smpte2084 -colorspace bt2020nc -color_range "
			"tv "
			"-x265-params 'log-level=error:"
			"master-display=G(13250,34500)B(7500,3000)R(34000,16000)WP(15635,16450)L(10000000,50)'");
	Options.Output = Folder.File("out.mp4");
	Options.To = 1.0;
	FMovingBox Overlay;
	const FVideoResult Result = BurnQuietly(Options, Overlay);
	ASSERT_TRUE(Result.IsDone()) << Result.Error;
	std::string Error;
	const auto Output = FVideoInput::Open(Options.Output, Error);
	const AVCodecParameters& Video = *Output->Video().codecpar;
	EXPECT_EQ(Video.color_primaries, AVCOL_PRI_BT2020);
	EXPECT_EQ(Video.color_trc, AVCOL_TRC_SMPTE2084);
	EXPECT_EQ(Video.color_space, AVCOL_SPC_BT2020_NCL);
	EXPECT_EQ(Video.color_range, AVCOL_RANGE_MPEG);
	EXPECT_EQ(Video.format, AV_PIX_FMT_YUV420P10);
	EXPECT_NEAR(Output->Shape().PixelAspect, 4.0 / 3.0, 1e-6);
	EXPECT_NE(av_stream_get_side_data(&Output->Video(), AV_PKT_DATA_MASTERING_DISPLAY_METADATA, nullptr), nullptr);
	const AVFormatContext& Format = Output->Format();
	EXPECT_STREQ(av_dict_get(Format.metadata, "title", nullptr, 0)->value, "Tale");
	EXPECT_STREQ(av_dict_get(Format.streams[1]->metadata, "language", nullptr, 0)->value, "fra");
	ASSERT_EQ(Format.nb_chapters, 2u);
	EXPECT_NEAR(static_cast<double>(Format.chapters[1]->end) * av_q2d(Format.chapters[1]->time_base), 1.0, 0.002);
	EXPECT_EQ(ReadPackets(Options.Output)["video"].size(), 25u);
}

TEST(Burn, APartHasTheSamePixelsAsTheWhole)
{
	struct FCase
	{
		std::string Input;
		double From;
		double To;
	};
	const FCase Cases[] = {
		{PlainVideo(), 1.1, 1.7}, {PlainVideo(), 0.02, 0.5}, {UnevenVideo(), 0.75, 1.6}, {BroadcastVideo(), 0.5, 0.9}};
	for (const FCase& Case : Cases)
	{
		const FTestFolder Folder;
		FBurnOptions Options;
		Options.Input = Case.Input;
		Options.Output = Folder.File("whole.mkv");
		Options.Codec = "ffv1";
		FMovingBox Whole;
		ASSERT_TRUE(BurnQuietly(Options, Whole).IsDone());
		Options.Output = Folder.File("part.mkv");
		Options.From = Case.From;
		Options.To = Case.To;
		FMovingBox Part;
		const FVideoResult Result = BurnQuietly(Options, Part);
		ASSERT_TRUE(Result.IsDone()) << Result.Error;
		const auto AllFrames = ReadFrames(Folder.File("whole.mkv"));
		const auto Frames = ReadFrames(Folder.File("part.mkv"));
		const auto FramesBefore = [&Whole](double InSeconds)
		{
			const auto IsBefore = [InSeconds](int64 InTicks)
			{
				return static_cast<double>(InTicks) < InSeconds * 1e7;
			};
			return std::count_if(Whole.Times.begin(), Whole.Times.end(), IsBefore);
		};
		const auto First = FramesBefore(Case.From);
		const auto Last = FramesBefore(Case.To);
		ASSERT_EQ(Frames.size(), static_cast<size_t>(Last - First)) << Case.Input;
		EXPECT_EQ(Frames[0]->pts, 0) << Case.Input;
		for (size_t Index = 0; Index < Frames.size(); ++Index)
		{
			ASSERT_TRUE(SamePicture(*Frames[Index], *AllFrames[Index + static_cast<size_t>(First)]))
				<< Case.Input << " frame " << Index;
		}
		auto Sound = ReadPackets(Folder.File("part.mkv"))["audio"];
		EXPECT_TRUE(Sound.empty() || (Sound.front().first >= 0 && Sound.front().first < 30'000));
		EXPECT_TRUE(Sound.empty() || static_cast<double>(Sound.back().first) < (Case.To - Case.From) * 1e6);
	}
}

TEST(Burn, WhatAContainerOrEncoderCannotTakeIsSaid)
{
	const FTestFolder Folder;
	FBurnOptions Options;
	Options.Input = SubtitledVideo();
	Options.Output = Folder.File("out.mp4");
	FMovingBox Overlay;
	FTestProgress Titles;
	ASSERT_TRUE(BurnQuietly(Options, Overlay, Titles).IsDone());
	EXPECT_NE(Titles.Messages.find("subrip"), std::string::npos) << Titles.Messages;
	EXPECT_EQ(ReadPackets(Options.Output).count("subtitle"), 0u);
	struct FCase
	{
		const char* Source;
		const char* Codec;
		AVPixelFormat Made;
	};
	constexpr FCase Cases[] = {{"gbrp", "libx264", AV_PIX_FMT_YUV444P},
							   {"yuv420p10le", "libvpx", AV_PIX_FMT_YUV420P},
							   {"gray", "ffv1", AV_PIX_FMT_YUV420P}};
	for (const FCase& Case : Cases)
	{
		Options.Input =
			MakeVideo(std::string("from-") + Case.Source + ".mkv",
					  std::string("-f lavfi -i testsrc2=s=64x48:r=25 -t 0.4 -c:v ffv1 -pix_fmt ") + Case.Source);
		Options.Output = Folder.File("out.mkv");
		Options.Codec = Case.Codec;
		FTestProgress Progress;
		const FVideoResult Result = BurnQuietly(Options, Overlay, Progress);
		ASSERT_TRUE(Result.IsDone()) << Case.Source << ": " << Result.Error;
		EXPECT_NE(Progress.Messages.find("converted"), std::string::npos) << Case.Source;
		EXPECT_EQ(ReadFrames(Options.Output).front()->format, Case.Made) << Case.Source;
	}
}

TEST(Probe, TellsTheUprightShape)
{
	std::string Error;
	const std::string Flat = MakeVideo(
		"lying.mp4", "-f lavfi -i testsrc2=s=96x64:r=30000/1001 -t 1 -vf setsar=2/1 -pix_fmt yuv420p -c:v libx264");
	const auto Info = Probe(MakeVideo("probe.mp4", "-i " + Flat + " -c copy -metadata:s:v rotate=90"), Error);
	ASSERT_TRUE(Info) << Error;
	EXPECT_EQ(Info->Shape.Width, 64);
	EXPECT_EQ(Info->Shape.Height, 96);
	EXPECT_DOUBLE_EQ(Info->Shape.PixelAspect, 0.5);
	EXPECT_NEAR(Info->Shape.FrameRate, 29.97, 0.001);
	EXPECT_NEAR(Info->DurationSeconds, 1.0, 0.04);
	EXPECT_EQ(Info->Codec + " " + Info->PixelFormat, "h264 yuv420p");
	EXPECT_NEAR(Probe(BroadcastVideo(), Error)->StartSeconds, 101.389, 0.001);
}

} // namespace
} // namespace Flitmark::Testing
