#include "Video/VideoShot.h"
#include "VideoTestKit.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/resource.h>

namespace Flitmark::Testing
{
namespace
{

void Overwrite(const std::string& InPath, std::streamoff InFrom, size_t InCount)
{
	std::fstream File(InPath, std::ios::in | std::ios::out | std::ios::binary);
	File.seekp(InFrom);
	File << std::string(InCount, 'x');
}

std::string Copied(const std::string& InFrom, const std::string& InTo)
{
	std::filesystem::copy_file(InFrom, InTo);
	return InTo;
}

struct FErrorCase
{
	const char* Name;
	void (*Change)(FBurnOptions& InOptions, const FTestFolder& InFolder);
	const char* Said;
};

class BurnErrors : public testing::TestWithParam<FErrorCase>
{
};

TEST_P(BurnErrors, AreSaidAndLeaveNothing)
{
	const FTestFolder Folder;
	FBurnOptions Options;
	Options.Input = PlainVideo();
	Options.Output = Folder.File("out.mp4");
	GetParam().Change(Options, Folder);
	const size_t FilesBefore = Folder.CountFiles();
	FMovingBox Overlay;
	const FVideoResult Result = BurnQuietly(Options, Overlay);
	EXPECT_EQ(Result.Outcome, EVideoOutcome::Failed);
	EXPECT_NE(Result.Error.find(GetParam().Said), std::string::npos) << Result.Error;
	EXPECT_EQ(Folder.CountFiles(), FilesBefore) << Result.Error;
}

using FOpt = FBurnOptions;
using FDir = FTestFolder;

INSTANTIATE_TEST_SUITE_P(
	All, BurnErrors,
	testing::Values(
		FErrorCase{"NoInput", [](FOpt& In, const FDir& D) { In.Input = D.File("none.mp4"); }, "No such file"},
		FErrorCase{"InputIsFolder", [](FOpt& In, const FDir&) { In.Input = "/tmp"; }, "/tmp: cannot be read"},
		FErrorCase{"Garbage",
				   [](FOpt& In, const FDir& D)
				   {
					   In.Input = D.File("garbage.mp4");
					   std::ofstream(In.Input) << std::string(50'000, 'x');
				   },
				   "garbage.mp4: cannot be read as a video"},
		FErrorCase{"Empty",
				   [](FOpt& In, const FDir& D)
				   {
					   In.Input = D.File("empty.mkv");
					   std::ofstream(In.Input).flush();
				   },
				   "cannot be read as a video"},
		FErrorCase{"CutOff",
				   [](FOpt& In, const FDir& D)
				   {
					   In.Input = Copied(In.Input, D.File("cut.mp4"));
					   std::filesystem::resize_file(In.Input, std::filesystem::file_size(In.Input) / 2);
				   },
				   "moov atom not found"},
		FErrorCase{"NoVideo",
				   [](FOpt& In, const FDir&) { In.Input = MakeVideo("sound.m4a", "-f lavfi -i sine -t 1 -c:a aac"); },
				   "no video stream"},
		FErrorCase{"NothingDecodes",
				   [](FOpt& In, const FDir& D)
				   {
					   In.Input = Copied(In.Input, D.File("scratched.mp4"));
					   std::ifstream File(In.Input, std::ios::binary);
					   const std::string Bytes(std::istreambuf_iterator<char>(File), {});
					   Overwrite(In.Input, 48, Bytes.rfind("moov") - 52);
				   },
				   "no frame of its video"},
		FErrorCase{"Itself", [](FOpt& In, const FDir& D) { In.Output = In.Input = Copied(In.Input, D.File("a.mp4")); },
				   "is the input itself"},
		FErrorCase{"ItselfByALink",
				   [](FOpt& In, const FDir& D)
				   {
					   In.Input = Copied(In.Input, D.File("a.mp4"));
					   std::filesystem::create_hard_link(In.Input, In.Output);
				   },
				   "is the input itself"},
		FErrorCase{"NoFolder", [](FOpt& In, const FDir& D) { In.Output = D.File("no/where/out.mp4"); },
				   "does not exist"},
		FErrorCase{"OutputIsFolder", [](FOpt& In, const FDir&) { std::filesystem::create_directory(In.Output); },
				   "not a plain file"},
		FErrorCase{"NoContainer", [](FOpt& In, const FDir& D) { In.Output = D.File("out.xyz"); },
				   "not a video container"},
		FErrorCase{"PictureFile", [](FOpt& In, const FDir& D) { In.Output = D.File("out.png"); },
				   "not a video container"},
		FErrorCase{"NoCodec", [](FOpt& In, const FDir&) { In.Codec = "nosuch"; }, "no such video encoder"},
		FErrorCase{"SoundCodec", [](FOpt& In, const FDir&) { In.Codec = "aac"; }, "no such video encoder"},
		FErrorCase{"WrongCodec",
				   [](FOpt& In, const FDir& D)
				   {
					   In.Codec = "libx264";
					   In.Output = D.File("out.webm");
				   },
				   "cannot hold h264 video; .mp4, .mkv or .mov can; for webm, use libvpx-vp9"},
		FErrorCase{"NoPreset", [](FOpt& In, const FDir&) { In.Preset = "swift"; }, "swift"},
		FErrorCase{"NoSuchSetting",
				   [](FOpt& In, const FDir& D)
				   {
					   In.Codec = "ffv1";
					   In.Crf = 20.0;
					   In.Output = D.File("out.mkv");
				   },
				   "has no setting \"crf\""},
		FErrorCase{"FromBehindTheEnd", [](FOpt& In, const FDir&) { In.From = 7.0; }, "only 2.0"},
		FErrorCase{"Backwards",
				   [](FOpt& In, const FDir&)
				   {
					   In.From = 1.0;
					   In.To = 0.5;
				   },
				   "must be after the start"}),
	[](const auto& InInfo) { return InInfo.param.Name; });

TEST(BurnErrors, AFullDiskIsSaidAndLeavesNothing)
{
	// The system refuses files beyond this size, as it refuses writes to a full disk.
	rlimit Before = {};
	ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &Before), 0);
	const auto OldHandler = std::signal(SIGXFSZ, SIG_IGN);
	const std::string Input = PlainVideo();
	// In the middle of the pictures, and in the index at the very end.
	for (const rlim_t Limit : {rlim_t{20'000}, rlim_t{100}})
	{
		const FTestFolder Folder;
		FBurnOptions Options;
		Options.Input = Input;
		Options.Output = Folder.File("out.mp4");
		FMovingBox Overlay;
		const rlimit Small = {Limit, Before.rlim_max};
		ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &Small), 0);
		const FVideoResult Result = BurnQuietly(Options, Overlay);
		FShotOptions ShotOptions;
		ShotOptions.Input = Input;
		ShotOptions.Output = Folder.File("out.png");
		const FVideoResult Picture =
			Limit == 100 ? Shot(ShotOptions, Overlay) : FVideoResult::Fail("cannot be written");
		ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &Before), 0);
		EXPECT_NE(Result.Error.find("out.mp4: cannot be written"), std::string::npos) << Result.Error;
		EXPECT_NE(Picture.Error.find("cannot be written"), std::string::npos) << Picture.Error;
		EXPECT_EQ(Folder.CountFiles(), 0u);
	}
	std::signal(SIGXFSZ, OldHandler);
}

TEST(BurnErrors, CancelingLeavesNothingAndKeepsAnEarlierOutput)
{
	const FTestFolder Folder;
	FBurnOptions Options;
	Options.Input = PlainVideo();
	Options.Output = Folder.File("out.mp4");
	std::ofstream(Options.Output) << "earlier";
	FMovingBox Overlay;
	FTestProgress Progress;
	std::atomic<bool> Cancel = false;
	Progress.OnEach = [&]
	{
		Cancel = Progress.Last.Frames == 7;
	};
	EXPECT_EQ(Burn(Options, Overlay, Progress, Cancel).Outcome, EVideoOutcome::Canceled);
	EXPECT_EQ(Progress.Last.Frames, 7);
	EXPECT_EQ(Folder.CountFiles(), 1u);
	EXPECT_EQ(std::filesystem::file_size(Options.Output), 7u);
	Options.From = 1.0;
	EXPECT_EQ(Burn(Options, Overlay, Progress, std::atomic<bool>(true)).Outcome, EVideoOutcome::Canceled);
	EXPECT_EQ(Folder.CountFiles(), 1u);
}

TEST(BurnErrors, AnOverlayThatThrowsFailsTheBurn)
{
	class FThrowing final : public IOverlaySource
	{
		void Open(const FVideoShape&) override {}
		void Advance(int64, double, std::vector<FPlacedSprite>&) override { throw std::runtime_error("no ink"); }
	};
	const FTestFolder Folder;
	FBurnOptions Options;
	Options.Input = PlainVideo();
	Options.Output = Folder.File("out.mp4");
	FThrowing Overlay;
	EXPECT_NE(BurnQuietly(Options, Overlay).Error.find("no ink"), std::string::npos);
	EXPECT_EQ(Folder.CountFiles(), 0u);
}

TEST(BurnErrors, DamageInTheMiddleIsPassedOverAndSaid)
{
	const FTestFolder Folder;
	FBurnOptions Options;
	Options.Input = Copied(MakeVideo("damage.ts", "-f lavfi -i testsrc2=s=160x120:r=25 -t 2 -c:v libx264 -g 5 "
												  "-pix_fmt yuv420p"),
						   Folder.File("damaged.ts"));
	Options.Output = Folder.File("out.mp4");
	Overwrite(Options.Input, static_cast<std::streamoff>(std::filesystem::file_size(Options.Input) / 2), 8'000);
	FMovingBox Overlay;
	FTestProgress Progress;
	const FVideoResult Result = BurnQuietly(Options, Overlay, Progress);
	ASSERT_TRUE(Result.IsDone()) << Result.Error;
	EXPECT_NE(Progress.Messages.find("damaged packets were skipped"), std::string::npos) << Progress.Messages;
	EXPECT_GT(ReadFrames(Options.Output).size(), 35u);
}

TEST(BurnErrors, AVideoCutOffBehindItsIndexIsSaid)
{
	const FTestFolder Folder;
	FBurnOptions Options;
	Options.Input =
		Copied(MakeVideo("fast.mp4", "-i " + PlainVideo() + " -c copy -movflags +faststart"), Folder.File("cut.mp4"));
	Options.Output = Folder.File("out.mp4");
	std::filesystem::resize_file(Options.Input, std::filesystem::file_size(Options.Input) / 3);
	FMovingBox Overlay;
	FTestProgress Progress;
	const FVideoResult Result = BurnQuietly(Options, Overlay, Progress);
	ASSERT_TRUE(Result.IsDone()) << Result.Error;
	EXPECT_NE(Progress.Messages.find("truncated"), std::string::npos) << Progress.Messages;
}

} // namespace
} // namespace Flitmark::Testing
