#include "Video/VideoShot.h"
#include "VideoTestKit.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace Flitmark::Testing
{
namespace
{

std::string BytesOf(const std::string& InPath)
{
	std::ifstream File(InPath, std::ios::binary);
	return {std::istreambuf_iterator<char>(File), {}};
}

std::string ShotBytes(const std::string& InInput, double InAt, IOverlaySource& InOverlay)
{
	const FTestFolder Folder;
	FShotOptions Options;
	Options.Input = InInput;
	Options.Output = Folder.File("shot.png");
	Options.At = InAt;
	const FVideoResult Result = Shot(Options, InOverlay);
	EXPECT_TRUE(Result.IsDone()) << Result.Error;
	EXPECT_EQ(Folder.CountFiles(), 1u);
	return BytesOf(Options.Output);
}

TEST(Shot, GivesTheSamePixelsAsABurn)
{
	const std::string Turned = MakeVideo("turn.mov", "-i " + PlainVideo() + " -c copy -metadata:s:v rotate=90");
	const std::string Deep = MakeVideo("deep.mkv", "-f lavfi -i testsrc2=s=96x64:r=30000/1001 -t 2 -c:v libx264 -g 12 "
												   "-pix_fmt yuv420p10le");
	for (const std::string& Input : {PlainVideo(), UnevenVideo(), Turned, Deep})
	{
		const FTestFolder Folder;
		FBurnOptions Options;
		Options.Input = Input;
		// Only the .mov container, which can hold lossless 8-bit H.264, keeps a rotation.
		const bool bTurned = Input == Turned;
		Options.Output = Folder.File(bTurned ? "burnt.mov" : "burnt.mkv");
		Options.Codec = bTurned ? "libx264" : "ffv1";
		Options.Crf = bTurned ? std::optional(0.0) : std::nullopt;
		FMovingBox Overlay;
		const FVideoResult Result = BurnQuietly(Options, Overlay);
		ASSERT_TRUE(Result.IsDone()) << Result.Error;
		for (const double At : {0.0, 0.5, 1.17, 1.79})
		{
			FMovingBox Fresh;
			FMovingBox Invisible;
			Invisible.bVisible = false;
			const std::string Painted = ShotBytes(Input, At, Fresh);
			EXPECT_TRUE(Painted == ShotBytes(Options.Output, At, Invisible)) << Input << " at " << At;
			EXPECT_TRUE(Painted != ShotBytes(Input, At, Invisible)) << Input << " at " << At;
		}
	}
}

TEST(Shot, ShowsTheFrameThatIsOnScreenThen)
{
	// Frames at 0, 0.1, ... 0.9 s.
	const std::string Input =
		MakeVideo("tenth.mp4", "-f lavfi -i testsrc2=s=64x48:r=10 -t 1 -c:v libx264 -bf 2 -pix_fmt yuv420p");
	struct FCase
	{
		double At;
		int64 Shown;
	};
	for (const FCase& Case : {FCase{0.0, 0}, FCase{0.0999, 0}, FCase{0.1, 1}, FCase{0.55, 5}, FCase{0.9999, 9}})
	{
		FMovingBox Overlay;
		ShotBytes(Input, Case.At, Overlay);
		ASSERT_EQ(Overlay.Times.size(), static_cast<size_t>(Case.Shown) + 1) << Case.At;
		EXPECT_EQ(Overlay.Times.back(), Case.Shown * 1'000'000) << Case.At;
	}
}

TEST(Shot, RefusesTimesAndFilesItCannotServe)
{
	const FTestFolder Folder;
	FMovingBox Overlay;
	const auto ErrorOf = [&](const std::string& InInput, double InAt)
	{
		FShotOptions Options;
		Options.Input = InInput;
		Options.Output = Folder.File("shot.png");
		Options.At = InAt;
		return Shot(Options, Overlay).Error;
	};
	EXPECT_NE(ErrorOf(PlainVideo(), 2.5).find("only 2.0"), std::string::npos);
	EXPECT_NE(ErrorOf(PlainVideo(), -1.0).find("0 seconds or later"), std::string::npos);
	EXPECT_NE(ErrorOf(Folder.File("none.mp4"), 0.0).find("No such file"), std::string::npos);
	EXPECT_EQ(Folder.CountFiles(), 0u);
}

} // namespace
} // namespace Flitmark::Testing
