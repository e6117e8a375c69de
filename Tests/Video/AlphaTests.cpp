#include "AlphaBlender.h"
#include "VideoInput.h"
#include "VideoTestKit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>

namespace Flitmark::Testing
{
namespace
{

/** Calls InVisit with the component, the sample, and the pixels (left, top, right, bottom) it stands for. */
template <class VisitType>
void ForEachSample(AVFrame& InFrame, const FAlphaLayout& InLayout, VisitType InVisit)
{
	for (size_t Index = 0; Index < 4; ++Index)
	{
		const FAlphaComponent& Each = InLayout.Components[Index];
		for (int32 Y = 0; Y < AV_CEIL_RSHIFT(InFrame.height, Each.ShiftY); ++Y)
		{
			for (int32 X = 0; X < AV_CEIL_RSHIFT(InFrame.width, Each.ShiftX); ++X)
			{
				uint8* const Row = InFrame.data[Each.Plane] + ptrdiff_t{Y} * InFrame.linesize[Each.Plane];
				InVisit(Index, Row + X * Each.Step + Each.Offset,
						FPixelRect{X << Each.ShiftX, Y << Each.ShiftY, 1 << Each.ShiftX, 1 << Each.ShiftY});
			}
		}
	}
}

class AlphaFormats : public testing::TestWithParam<AVPixelFormat>
{
};

/**
 * Premultiplied by its alpha, a picture is what it adds to whatever is below it: new = sprite + old x (1 - sprite's
 * alpha). The test computes that separately for each sample, from one sprite of one color.
 */
TEST_P(AlphaFormats, BlendingKeepsWhatIsSeenOverAnything)
{
	constexpr int32 Width = 32;
	constexpr int32 Height = 16;
	constexpr FPixelRect Box{6, 4, 14, 8};
	const FAlphaLayout Layout = FAlphaLayout::Of(GetParam()).value();
	const double Maximum = (1 << Layout.Depth) - 1;
	std::mt19937 Random(5);
	for (const double Alpha : {1.0, 0.5, 0.1})
	{
		FFramePtr Frame = MakeFrame();
		Frame->format = GetParam();
		Frame->width = Width;
		Frame->height = Height;
		ASSERT_GE(av_frame_get_buffer(Frame.get(), 0), 0);
		const auto Read = [&Layout](const uint8* InSample)
		{
			uint16 Value = *InSample;
			std::memcpy(&Value, InSample, Layout.Depth > 8 ? 2 : 1);
			return static_cast<double>(Value);
		};
		std::vector<double> Before[4];
		ForEachSample(*Frame, Layout,
					  [&](size_t InIndex, uint8* InSample, const FPixelRect& InPixels)
					  {
						  // Alpha is constant over a sample's pixels, and 0 in the left half of the picture.
						  const bool bNothing = InPixels.X < Width / 2;
						  const double Value = InIndex == 3 ? (bNothing ? 0.0 : Maximum / 4.0)
															: static_cast<int32>(Random() >> 8) % (1 << Layout.Depth);
						  const uint16 Stored = static_cast<uint16>(Value);
						  std::memcpy(InSample, &Stored, Layout.Depth > 8 ? 2 : 1);
						  Before[InIndex].push_back(Stored);
					  });
		Frame->colorspace = AVCOL_SPC_BT709;
		const auto Part = [Alpha](double InValue)
		{
			return static_cast<uint8>(std::lround(InValue * Alpha));
		};
		const auto Sprite = MakeBox(Box.Width, Box.Height, Part(200), Part(60), Part(20), Part(255));
		const FColorMatrix Matrix = FColorMatrix::For(*Frame, Layout.Depth);
		const FPlacedSprite Placed{Sprite, Box.X, Box.Y, 1.0};
		MakeAlphaBlender({Layout, Matrix, FOrientation()})->Blend(*Frame, {&Placed, 1});
		const double Over = Sprite->Pixels[3] / 255.0;
		size_t Places[4] = {};
		ForEachSample(*Frame, Layout,
					  [&](size_t InIndex, uint8* InSample, const FPixelRect& InPixels)
					  {
						  const bool bInside = InPixels.X >= Box.X && InPixels.X < Box.X + Box.Width &&
											   InPixels.Y >= Box.Y && InPixels.Y < Box.Y + Box.Height;
						  const double Old = Before[InIndex][Places[InIndex]++];
						  const double OldAlpha = InPixels.X < Width / 2 ? 0.0 : std::floor(Maximum / 4.0) / Maximum;
						  const double NewAlpha = Over + OldAlpha * (1.0 - Over);
						  double Ink = Sprite->Pixels[InIndex] * Maximum / 255.0;
						  if (!Layout.bRgb && InIndex < 3)
						  {
							  Ink = 0.0;
							  for (size_t Color = 0; Color < 4; ++Color)
							  {
								  Ink += Sprite->Pixels[Color] * Matrix.Row[InIndex][Color] / 65536.0;
							  }
						  }
						  const double New =
							  InIndex == 3 ? NewAlpha * Maximum : (Ink + Old * OldAlpha * (1.0 - Over)) / NewAlpha;
						  ASSERT_NEAR(Read(InSample), bInside ? std::clamp(New, 0.0, Maximum) : Old, 0.51)
							  << InIndex << " at " << InPixels.X << ", " << InPixels.Y << " alpha " << Alpha;
					  });
	}
}

INSTANTIATE_TEST_SUITE_P(All, AlphaFormats,
						 testing::Values(AV_PIX_FMT_RGBA, AV_PIX_FMT_ARGB, AV_PIX_FMT_BGRA, AV_PIX_FMT_GBRAP,
										 AV_PIX_FMT_GBRAP12, AV_PIX_FMT_RGBA64, AV_PIX_FMT_YUVA420P,
										 AV_PIX_FMT_YUVA422P10, AV_PIX_FMT_YUVA444P, AV_PIX_FMT_YUVA444P10),
						 [](const auto& InInfo) { return av_get_pix_fmt_name(InInfo.param); });

/** A chroma sample under the edge of a comment gets the comment's color, not a mix with the transparent pixels. */
TEST(AlphaBlender, ChromaOfAnEdgeIsNotDiluted)
{
	FFramePtr Frame = MakeFrame();
	Frame->format = AV_PIX_FMT_YUVA420P;
	Frame->width = 8;
	Frame->height = 8;
	ASSERT_GE(av_frame_get_buffer(Frame.get(), 0), 0);
	for (int32 Plane = 0; Plane < 4; ++Plane)
	{
		const bool bChroma = Plane == 1 || Plane == 2;
		const int32 Rows = bChroma ? Frame->height / 2 : Frame->height;
		std::memset(Frame->data[Plane], bChroma ? 128 : 0, static_cast<size_t>(Frame->linesize[Plane] * Rows));
	}
	const FPlacedSprite Placed{MakeBox(4, 4, 255, 0, 0), 1.0, 1.0, 1.0};
	const FAlphaLayout Layout = FAlphaLayout::Of(AV_PIX_FMT_YUVA420P).value();
	MakeAlphaBlender({Layout, FColorMatrix::For(*Frame, 8), FOrientation()})->Blend(*Frame, {&Placed, 1});
	EXPECT_EQ(SampleAt(*Frame, 2, 0, 0), SampleAt(*Frame, 2, 1, 1));
	EXPECT_EQ(SampleAt(*Frame, 2, 1, 1), 240);
	EXPECT_EQ(SampleAt(*Frame, 3, 0, 1), 0);
	EXPECT_EQ(SampleAt(*Frame, 3, 1, 1), 255);
}

struct FKeepCase
{
	const char* Name;
	const char* Input;
	const char* Arguments;
	const char* Output;
	const char* Codec;
	AVPixelFormat Made;
	const char* Said;
};

class AlphaVideos : public testing::TestWithParam<FKeepCase>
{
};

TEST_P(AlphaVideos, KeepTheirsOrSaySo)
{
	const FKeepCase& Case = GetParam();
	const FTestFolder Folder;
	FBurnOptions Options;
	Options.Input = MakeVideo(
		Case.Input, std::string("-f lavfi -i testsrc2=s=64x48:r=10 -t 0.5 -vf format=rgba,colorchannelmixer=aa=0.5 ") +
						Case.Arguments);
	Options.Output = Folder.File(Case.Output);
	Options.Codec = Case.Codec;
	FMovingBox Overlay;
	FTestProgress Progress;
	const FVideoResult Result = BurnQuietly(Options, Overlay, Progress);
	ASSERT_TRUE(Result.IsDone()) << Result.Error;
	EXPECT_NE(Progress.Messages.find(Case.Said), std::string::npos) << Progress.Messages;
	EXPECT_EQ(Progress.Messages.find("transparency") != std::string::npos, !HasAlpha(Case.Made)) << Progress.Messages;
	const auto Frames = ReadFrames(Options.Output);
	ASSERT_EQ(Frames.size(), 5u);
	ASSERT_EQ(Frames[1]->format, Case.Made) << av_get_pix_fmt_name(static_cast<AVPixelFormat>(Frames[1]->format));
	if (const auto Layout = FAlphaLayout::Of(Case.Made))
	{
		double Opaque = 0.0;
		double Sheer = 0.0;
		ForEachSample(*Frames[1], *Layout,
					  [&](size_t InIndex, const uint8* InSample, const FPixelRect& InPixels)
					  {
						  uint16 Value = *InSample;
						  std::memcpy(&Value, InSample, Layout->Depth > 8 ? 2 : 1);
						  const double Share = Value / static_cast<double>((1 << Layout->Depth) - 1);
						  // Inside the box, which has moved by 4.5 pixels, and far from it.
						  Opaque += InIndex == 3 && InPixels.X == 10 && InPixels.Y == 16 ? Share : 0.0;
						  Sheer += InIndex == 3 && InPixels.X == 40 && InPixels.Y == 40 ? Share : 0.0;
					  });
		EXPECT_NEAR(Opaque, 1.0, 0.02);
		EXPECT_NEAR(Sheer, 0.5, 0.02);
	}
}

INSTANTIATE_TEST_SUITE_P(All, AlphaVideos,
						 testing::Values(FKeepCase{"WebmToWebm", "alpha.webm", "-c:v libvpx-vp9 -pix_fmt yuva420p",
												   "o.webm", "", AV_PIX_FMT_YUVA420P, ""},
										 FKeepCase{"WebmToMov", "alpha.webm", "-c:v libvpx-vp9 -pix_fmt yuva420p",
												   "o.mov", "", AV_PIX_FMT_YUVA444P12, "prores"},
										 FKeepCase{"MovToMkv", "alpha.mov", "-c:v qtrle -pix_fmt argb", "o.mkv", "",
												   AV_PIX_FMT_YUVA420P, "converted"},
										 FKeepCase{"MovToRle", "alpha.mov", "-c:v qtrle -pix_fmt argb", "o.mov",
												   "qtrle", AV_PIX_FMT_ARGB, ""},
										 FKeepCase{"MovToMp4", "alpha.mov", "-c:v qtrle -pix_fmt argb", "o.mp4", "",
												   AV_PIX_FMT_YUV444P, "libx264 keeps no transparency; .mov with"},
										 FKeepCase{"VpInMp4", "alpha.webm", "-c:v libvpx-vp9 -pix_fmt yuva420p",
												   "o.mp4", "libvpx-vp9", AV_PIX_FMT_YUV420P,
												   "mp4 has no place for the transparency"}),
						 [](const auto& InInfo) { return InInfo.param.Name; });

TEST(Encoders, TheContainersUsualOneIsTaken)
{
	const std::pair<const char*, const char*> Cases[] = {
		{"o.webm", "vp9"}, {"o.mkv", "h264"}, {"o.mp4", "h264"}, {"o.MOV", "h264"}, {"o.ogv", "theora"}};
	for (const auto& [Output, Codec] : Cases)
	{
		const FTestFolder Folder;
		FBurnOptions Options;
		Options.Input = UnevenVideo();
		Options.Output = Folder.File(Output);
		Options.To = 0.2;
		FMovingBox Overlay;
		const FVideoResult Result = BurnQuietly(Options, Overlay);
		ASSERT_TRUE(Result.IsDone()) << Output << ": " << Result.Error;
		std::string Error;
		const auto Made = FVideoInput::Open(Options.Output, Error);
		ASSERT_TRUE(Made) << Error;
		EXPECT_STREQ(avcodec_get_name(Made->Video().codecpar->codec_id), Codec);
	}
}

} // namespace
} // namespace Flitmark::Testing
