#include "Video/VideoOverlay.h"

#include "AlphaLayout.h"
#include "NumberedName.h"
#include "VideoInput.h"
#include "VideoTestKit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace Flitmark::Testing
{
namespace
{

/** A half-transparent box near the left, an opaque one near the bottom right, and none for some time. */
class FTwoBoxes final : public IOverlaySource
{
public:
	void Open(const FVideoShape& InShape) override { Shape = InShape; }
	void Advance(int64 InTicks, double InDeltaSeconds, std::vector<FPlacedSprite>& OutSprites) override
	{
		Way += InDeltaSeconds * 30.0;
		Ticks = InTicks;
		if (InTicks < PauseFrom || InTicks >= PauseTo)
		{
			OutSprites.push_back({Sheer, 3.0 + Way, 5.0, 1.0});
			OutSprites.push_back({Solid, Shape.Width - 20.0, Shape.Height - 11.0, 1.0});
		}
	}
	bool IsOver() const override { return Ticks >= End; }

	FVideoShape Shape;
	int64 PauseFrom = 5'000'000;
	int64 PauseTo = 15'000'000;
	int64 End = 18'000'000;

private:
	std::shared_ptr<const FSprite> Sheer = MakeBox(13, 9, 120, 60, 10, 128);
	std::shared_ptr<const FSprite> Solid = MakeBox(8, 5, 20, 40, 250);
	double Way = 0.0;
	int64 Ticks = 0;
};

FVideoResult DrawQuietly(const FOverlayVideoOptions& InOptions, IOverlaySource& InOverlay, FTestProgress& InProgress)
{
	const std::atomic<bool> Cancel = false;
	return DrawOverlay(InOptions, InOverlay, InProgress, Cancel);
}

std::string Bytes(const std::string& InPath)
{
	std::ifstream File(InPath, std::ios::binary);
	return {std::istreambuf_iterator<char>(File), {}};
}

struct FOverCase
{
	const char* Name;
	const char* Source;
	const char* Output;
	const char* Codec;

	/** How ffmpeg reads it and lays it over a video, and the output's format. */
	const char* Reader;
	const char* Filter;
	const char* Format;

	/** Code values by which it may differ from a burn. */
	int32 MostOff;
	double MeanOff;
};

class OverVideos : public testing::TestWithParam<FOverCase>
{
};

/** ffmpeg lays the overlay over the video; no two parts of the test picture are alike. */
TEST_P(OverVideos, TheOverlayGivesWhatABurnGives)
{
	const FOverCase& Case = GetParam();
	const FTestFolder Folder;
	FBurnOptions Burned;
	Burned.Input = MakeVideo(std::string("under-") + Case.Format + ".mov",
							 std::string("-f lavfi -i testsrc2=s=96x64:r=") + Case.Source +
								 " -t 2 -c:v ffv1 -pix_fmt " + Case.Format + " -strict -2 -f matroska");
	Burned.Output = Folder.File("burned.mkv");
	Burned.Codec = "ffv1";
	FTwoBoxes Boxes;
	ASSERT_TRUE(BurnQuietly(Burned, Boxes).IsDone());
	FOverlayVideoOptions Options;
	Options.Like = Burned.Input;
	Options.Output = Folder.File(Case.Output);
	Options.Codec = Case.Codec;
	FTwoBoxes Same;
	FTestProgress Progress;
	const FVideoResult Result = DrawQuietly(Options, Same, Progress);
	ASSERT_TRUE(Result.IsDone()) << Result.Error;
	const auto Raw = [&Folder](const std::string& InName, const std::string& InArguments)
	{
		const std::string Path = Folder.File(InName);
		const std::string Command = "ffmpeg -nostdin -v error -y " + InArguments + " -f rawvideo " + Path;
		EXPECT_EQ(std::system(Command.c_str()), 0) << Command;
		return Bytes(Path);
	};
	const std::string Expected = Raw("b.raw", "-i " + Burned.Output + " -pix_fmt " + Case.Format);
	const std::string Made = Raw("o.raw", "-i " + Burned.Input + " " + Case.Reader + " -i " + Options.Output +
											  " -filter_complex \"[0][1]" + Case.Filter + "\" -pix_fmt " + Case.Format);
	ASSERT_EQ(Made.size(), Expected.size());
	int64 Sum = 0;
	int32 Most = 0;
	for (size_t Index = 0; Index < Made.size(); ++Index)
	{
		const int32 Off = std::abs(static_cast<uint8>(Made[Index]) - static_cast<uint8>(Expected[Index]));
		Most = std::max(Most, Off);
		Sum += Off;
	}
	EXPECT_LE(Most, Case.MostOff);
	EXPECT_LE(static_cast<double>(Sum) / static_cast<double>(Made.size()), Case.MeanOff);
	EXPECT_NE(Expected, Raw("v.raw", "-i " + Burned.Input + " -pix_fmt " + Case.Format)) << "nothing was burned";
}

// Rounding twice may be off by 2, which is all that lossless formats show. ProRes and VP9 smear edges a little.
INSTANTIATE_TEST_SUITE_P(
	All, OverVideos,
	testing::Values(
		FOverCase{"Rle", "25", "o.mov", "qtrle", "", "overlay=format=yuv444", "yuv444p", 2, 0.05},
		FOverCase{"Pictures", "25", "o-%03d.png", "", "-framerate 25", "overlay=format=yuv444", "yuv444p", 2, 0.05},
		FOverCase{"ProRes", "30000/1001", "o.mov", "", "", "overlay=format=yuv444", "yuv444p", 12, 0.1},
		FOverCase{"Vp9", "25", "o.webm", "", "-c:v libvpx-vp9", "overlay=format=yuv420", "yuv420p", 40, 0.5}),
	[](const auto& InInfo) { return InInfo.param.Name; });

TEST(DrawOverlay, RateAndEndAreExact)
{
	const FTestFolder Folder;
	FOverlayVideoOptions Options;
	Options.Output = Folder.File("o.mov");
	Options.Codec = "qtrle";
	Options.Width = 97;
	Options.Height = 65;
	Options.RateNumerator = 60'000;
	Options.RateDenominator = 2'002;
	FTwoBoxes Boxes;
	FTestProgress Progress;
	ASSERT_TRUE(DrawQuietly(Options, Boxes, Progress).IsDone());
	std::string Error;
	const auto Made = FVideoInput::Open(Options.Output, Error);
	ASSERT_TRUE(Made) << Error;
	EXPECT_EQ(av_cmp_q(FrameRateOf(Made->Video()), {30'000, 1'001}), 0);
	EXPECT_EQ(Made->Shape().Width, 97);
	EXPECT_EQ(Made->Shape().Height, 65);
	// Frame 54, at 1.8018 s, is the first one at or after the end.
	const auto Times = ReadPackets(Options.Output)["video"];
	ASSERT_EQ(Times.size(), 54u);
	EXPECT_EQ(Progress.Last.Frames, 54);
	for (size_t Index = 0; Index < Times.size(); ++Index)
	{
		ASSERT_NEAR(static_cast<double>(Times[Index].first), static_cast<double>(Index) * 1e6 * 1001.0 / 30'000.0, 1.0);
	}
}

TEST(DrawOverlay, FollowsUnevenFramesAndParts)
{
	const FTestFolder Folder;
	FOverlayVideoOptions Options;
	Options.Like = UnevenVideo();
	Options.Output = Folder.File("o.mov");
	Options.Codec = "qtrle";
	FMovingBox Whole;
	FTestProgress Progress;
	ASSERT_TRUE(DrawQuietly(Options, Whole, Progress).IsDone());
	const auto Wanted = TimesOf(ReadPackets(Options.Like)["video"]);
	EXPECT_EQ(TimesOf(ReadPackets(Options.Output)["video"]), Wanted);
	const auto All = ReadFrames(Options.Output);
	Options.From = 0.75;
	Options.To = 1.6;
	FMovingBox Part;
	ASSERT_TRUE(DrawQuietly(Options, Part, Progress).IsDone());
	const auto Frames = ReadFrames(Options.Output);
	const auto First = std::lower_bound(Wanted.begin(), Wanted.end(), 750'000) - Wanted.begin();
	const auto Last = std::lower_bound(Wanted.begin(), Wanted.end(), 1'600'000) - Wanted.begin();
	ASSERT_EQ(Frames.size(), static_cast<size_t>(Last - First));
	EXPECT_EQ(Frames[0]->pts, 0);
	for (size_t Index = 0; Index < Frames.size(); ++Index)
	{
		const AVFrame& Same = *All[Index + static_cast<size_t>(First)];
		for (int32 Row = 0; Row < Same.height; ++Row)
		{
			ASSERT_TRUE(std::equal(Same.data[0] + Row * Same.linesize[0],
								   Same.data[0] + Row * Same.linesize[0] + Same.width * 4,
								   Frames[Index]->data[0] + Row * Frames[Index]->linesize[0]))
				<< Index;
		}
	}
}

/** Such an encoder's blank frames all have the first one's bytes; the frames around them have their own. */
TEST(DrawOverlay, BlankFramesAreEncodedOnce)
{
	for (const char* Codec : {"qtrle", "prores_aw", "prores_ks"})
	{
		const FTestFolder Folder;
		FOverlayVideoOptions Options;
		Options.Output = Folder.File("o.mov");
		Options.Codec = Codec;
		Options.Width = 64;
		Options.Height = 48;
		Options.RateNumerator = 20;
		Options.Threads = 3;
		FTwoBoxes Boxes;
		FTestProgress Progress;
		ASSERT_TRUE(DrawQuietly(Options, Boxes, Progress).IsDone());
		const auto Packets = ReadPackets(Options.Output)["video"];
		ASSERT_EQ(Packets.size(), 36u) << Codec;
		for (size_t Index = 0; Index < Packets.size(); ++Index)
		{
			const bool bBlank = Index >= 10 && Index < 30;
			ASSERT_EQ(Packets[Index].first, static_cast<int64>(Index) * 50'000);
			ASSERT_EQ(Packets[Index].second == Packets[10].second, bBlank) << Codec << " " << Index;
		}
		const auto Frames = ReadFrames(Options.Output);
		EXPECT_EQ(Frames.size(), 36u);
	}
}

TEST(DrawOverlay, VideosForPlayersHoldBlankFramesAndTheirLength)
{
	const FTestFolder Folder;
	FOverlayVideoOptions Options;
	Options.Output = Folder.File("o.webm");
	Options.Width = 64;
	Options.Height = 48;
	Options.RateNumerator = 20;
	Options.To = 4.0;
	FTwoBoxes Boxes;
	Boxes.PauseTo = 40'000'000;
	FTestProgress Progress;
	ASSERT_TRUE(DrawQuietly(Options, Boxes, Progress).IsDone());
	EXPECT_EQ(Progress.Last.Frames, 80);
	// Comments until 0.5 s, then one frame per second, and the last one.
	auto Times = TimesOf(ReadPackets(Options.Output)["video"]);
	Times.erase(Times.begin(), Times.begin() + 10);
	EXPECT_EQ(Times, (std::vector<int64>{500'000, 1'500'000, 2'500'000, 3'500'000, 3'950'000}));
}

struct FNameCase
{
	const char* Pattern;

	/** Of number 7; null if it is none. */
	const char* Made;
};

TEST(NumberedName, HasOnePlace)
{
	constexpr FNameCase Cases[] = {{"o%d.png", "o7.png"},
								   {"a/%05d.png", "a/00007.png"},
								   {"100%%-%03d.png", "100%-007.png"},
								   {"o%3d.png", "o007.png"},
								   {"o.png", nullptr},
								   {"o%d-%d.png", nullptr},
								   {"o%s.png", nullptr},
								   {"o%", nullptr},
								   {"o%05", nullptr},
								   {"o%999d.png", nullptr},
								   {"o%-5d.png", nullptr},
								   {"%99999999999999999999d", nullptr}};
	for (const FNameCase& Case : Cases)
	{
		const auto Name = FNumberedName::Parse(Case.Pattern);
		EXPECT_EQ(Name.has_value(), Case.Made != nullptr) << Case.Pattern;
		EXPECT_EQ(Name ? Name->Name(7) : "", Case.Made != nullptr ? Case.Made : "") << Case.Pattern;
	}
}

TEST(DrawOverlay, LeavesNoHalfFileWhenCanceled)
{
	for (const char* Name : {"o.mov", "o.webm", "o-%d.png"})
	{
		const FTestFolder Folder;
		FOverlayVideoOptions Options;
		Options.Output = Folder.File(Name);
		Options.Width = 64;
		Options.Height = 48;
		FMovingBox Endless;
		std::atomic<bool> Cancel = false;
		FTestProgress Progress;
		Progress.OnEach = [&]
		{
			Cancel = Progress.Last.Frames >= 40;
		};
		EXPECT_EQ(DrawOverlay(Options, Endless, Progress, Cancel).Outcome, EVideoOutcome::Canceled);
		for (const auto& Entry : std::filesystem::directory_iterator(Folder.File("")))
		{
			EXPECT_EQ(Entry.path().extension(), ".png") << Entry.path();
			EXPECT_EQ(ReadFrames(Entry.path()).size(), 1u) << Entry.path();
		}
	}
}

TEST(DrawOverlay, SaysThatPicturesOfAnEarlierRunAreLeft)
{
	const FTestFolder Folder;
	FOverlayVideoOptions Options;
	Options.Output = Folder.File("o%03d.png");
	Options.Width = 64;
	Options.Height = 48;
	Options.RateNumerator = 10;
	FTestProgress Progress;
	for (const double To : {1.0, 0.5})
	{
		FMovingBox Boxes;
		Options.To = To;
		ASSERT_TRUE(DrawQuietly(Options, Boxes, Progress).IsDone());
		EXPECT_EQ(Progress.Messages.find("o006.png: is a picture of an earlier run") != std::string::npos, To == 0.5)
			<< Progress.Messages;
	}
}

struct FOverlayErrorCase
{
	const char* Name;
	void (*Change)(FOverlayVideoOptions& InOptions, const FTestFolder& InFolder);
	const char* Said;
};

class OverlayErrors : public testing::TestWithParam<FOverlayErrorCase>
{
};

TEST_P(OverlayErrors, AreSaidAndLeaveNothing)
{
	const FTestFolder Folder;
	FOverlayVideoOptions Options;
	Options.Output = Folder.File("o.mov");
	Options.Width = 64;
	Options.Height = 48;
	GetParam().Change(Options, Folder);
	FTwoBoxes Boxes;
	FTestProgress Progress;
	const FVideoResult Result = DrawQuietly(Options, Boxes, Progress);
	EXPECT_EQ(Result.Outcome, EVideoOutcome::Failed);
	EXPECT_NE(Result.Error.find(GetParam().Said), std::string::npos) << Result.Error;
	EXPECT_EQ(Folder.CountFiles(), 0u);
}

using FOpt = FOverlayVideoOptions;
using FDir = FTestFolder;

INSTANTIATE_TEST_SUITE_P(
	All, OverlayErrors,
	testing::Values(
		FOverlayErrorCase{"OpaqueContainer", [](FOpt& In, const FDir& D) { In.Output = D.File("o.mp4"); },
						  "o.mp4: the encoder libx264 keeps no transparency; .mov with prores_aw"},
		FOverlayErrorCase{"OpaqueEncoder", [](FOpt& In, const FDir&) { In.Codec = "libx264"; }, "prores_aw does"},
		FOverlayErrorCase{"NoPlaceForAlpha",
						  [](FOpt& In, const FDir& D)
						  {
							  In.Codec = "libvpx-vp9";
							  In.Output = D.File("o.mp4");
						  },
						  "no place for the transparency of libvpx-vp9; .mkv or .webm has"},
		FOverlayErrorCase{"OnePicture", [](FOpt& In, const FDir& D) { In.Output = D.File("o.png"); }, "out-%05d.png"},
		FOverlayErrorCase{"NoContainer", [](FOpt& In, const FDir& D) { In.Output = D.File("o"); }, "use .mp4, .mkv"},
		FOverlayErrorCase{"NoFolder", [](FOpt& In, const FDir& D) { In.Output = D.File("no/o%d.png"); },
						  "does not exist"},
		FOverlayErrorCase{"OverItself", [](FOpt& In, const FDir&) { In.Like = In.Output = PlainVideo(); },
						  "is the input itself"},
		FOverlayErrorCase{"NoVideo", [](FOpt& In, const FDir& D) { In.Like = D.File("none.mp4"); }, "none.mp4"},
		FOverlayErrorCase{"AllOver", [](FOpt& In, const FDir&) { In.From = 60.0; }, "no frame of a comment"},
		FOverlayErrorCase{"PastTheVideo",
						  [](FOpt& In, const FDir&)
						  {
							  In.Like = PlainVideo();
							  In.From = 60.0;
						  },
						  "no frame of the video"}),
	[](const auto& InInfo) { return InInfo.param.Name; });

} // namespace
} // namespace Flitmark::Testing
