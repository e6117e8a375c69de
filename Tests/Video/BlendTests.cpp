#include "BlendRows.h"
#include "Blender.h"
#include "VideoTestKit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>

namespace Flitmark::Testing
{
namespace
{

TEST(BlendRows, SampleIsTheExactMixRounded)
{
	for (int32 Video = 0; Video < 256; ++Video)
	{
		for (int32 Alpha = 0; Alpha < 256; ++Alpha)
		{
			const int32 Color = Alpha * 77 / 255;
			const int32 Mixed =
				BlendSample(static_cast<uint8>(Video), static_cast<uint8>(255 - Alpha), static_cast<uint8>(Color));
			ASSERT_EQ(Mixed, (Video * (255 - Alpha) * 2 + 255) / 510 + Color) << Video << " under " << Alpha;
		}
	}
}

TEST(BlendRows, DeepSampleKeepsAndReplacesExactly)
{
	for (uint16 Video = 0; Video < 4096; ++Video)
	{
		ASSERT_EQ(BlendSample(Video, uint16{65535}, uint16{0}), Video);
		ASSERT_EQ(BlendSample(Video, uint16{0}, uint16{940}), 940);
		const double Half = Video * (65535 - 128 * 257) / 65535.0;
		ASSERT_NEAR(BlendSample(Video, uint16{65535 - 128 * 257}, uint16{0}), Half, 0.6);
	}
}

template <typename SampleType>
void ExpectKernelsAgree(int32 InShift)
{
	std::mt19937 Random(7);
	for (int32 Count = 0; Count < 100; ++Count)
	{
		std::vector<SampleType> Rows[4];
		for (std::vector<SampleType>& Row : Rows)
		{
			Row.resize(static_cast<size_t>(Count) + 8);
			std::generate(Row.begin(), Row.end(), [&] { return static_cast<SampleType>(Random() >> 6); });
		}
		std::vector<SampleType> Expected = Rows[0];
		for (size_t Index = 0; Index < static_cast<size_t>(Count); ++Index)
		{
			const SampleType Video = static_cast<SampleType>(Rows[0][Index] >> InShift);
			Expected[Index] = static_cast<SampleType>(BlendSample(Video, Rows[1][Index], Rows[2][Index]) << InShift);
		}
		for (const auto& Kernel : {PlainBlendRow<SampleType>(), FastestBlendRow<SampleType>()})
		{
			std::vector<SampleType> Video = Rows[0];
			Kernel(Video.data(), Rows[1].data(), Rows[2].data(), Count, InShift);
			ASSERT_EQ(Video, Expected) << Count << " samples";
		}
	}
}

TEST(BlendRows, KernelsAgreeWithTheSampleForEveryCount)
{
	ExpectKernelsAgree<uint8>(0);
	ExpectKernelsAgree<uint16>(4);
	ExpectKernelsAgree<uint16>(6);
}

FFramePtr MakeNoise(AVPixelFormat InFormat, int32 InWidth, int32 InHeight, std::mt19937& InRandom)
{
	FFramePtr Frame = MakeFrame();
	Frame->format = InFormat;
	Frame->width = InWidth;
	Frame->height = InHeight;
	EXPECT_GE(av_frame_get_buffer(Frame.get(), 0), 0);
	const FPixelLayout Layout = FPixelLayout::Of(InFormat).value();
	const uint16 Mask = static_cast<uint16>(((1 << Layout.Depth) - 1) << Layout.SampleShift);
	for (const AVBufferRef* Buffer : Frame->buf)
	{
		for (size_t Index = 0; Buffer != nullptr && Index + 1 < Buffer->size; Index += 2)
		{
			const uint16 Sample = static_cast<uint16>(Layout.Depth > 8 ? InRandom() & Mask : InRandom());
			memcpy(Buffer->data + Index, &Sample, 2);
		}
	}
	return Frame;
}

struct FFormatCase
{
	AVPixelFormat Format;
	AVColorSpace Space;
	AVColorRange Range;
	FOrientation Orientation;
	double Opacity;
};

void PrintTo(const FFormatCase& InCase, std::ostream* InStream)
{
	*InStream << av_get_pix_fmt_name(InCase.Format) << " matrix " << InCase.Space << " range " << InCase.Range;
}

class BlendFormats : public testing::TestWithParam<FFormatCase>
{
};

/** The comment's share of one component, in code values, by the definition of the color space; and its alpha. */
std::pair<double, double> ExpectedInk(const FSprite& InSprite, size_t InPixel, const FFormatCase& InCase, int32 InDepth,
									  int32 InComponent)
{
	const bool b709 = InCase.Space == AVCOL_SPC_BT709;
	const bool b2020 = InCase.Space == AVCOL_SPC_BT2020_NCL;
	const double Kr = b2020 ? 0.2627 : b709 ? 0.2126 : 0.299;
	const double Kb = b2020 ? 0.0593 : b709 ? 0.0722 : 0.114;
	const double R = InSprite.Pixels[InPixel * 4] / 255.0 * InCase.Opacity;
	const double G = InSprite.Pixels[InPixel * 4 + 1] / 255.0 * InCase.Opacity;
	const double B = InSprite.Pixels[InPixel * 4 + 2] / 255.0 * InCase.Opacity;
	const double Alpha = InSprite.Pixels[InPixel * 4 + 3] / 255.0 * InCase.Opacity;
	const double Y = Kr * R + (1.0 - Kr - Kb) * G + Kb * B;
	const double Chroma = InComponent == 1 ? (B - Y) / (2.0 - 2.0 * Kb) : (R - Y) / (2.0 - 2.0 * Kr);
	const bool bFull = InCase.Range == AVCOL_RANGE_JPEG;
	const double Unit = 1 << (InDepth - 8);
	const double Full = (1 << InDepth) - 1;
	const double Luma = bFull ? Y * Full : (Y * 219.0 + 16.0 * Alpha) * Unit;
	return {InComponent == 0 ? Luma : Chroma * (bFull ? Full : 224.0 * Unit) + 128.0 * Unit * Alpha, Alpha};
}

/** A plane's sample as it should be after blending, straight from the definition. */
double ExpectedSample(const AVFrame& InBefore, const FPlacedSprite& InPlaced, const FFormatCase& InCase, int32 InPlane,
					  int32 InX, int32 InY)
{
	const FPixelLayout Layout = FPixelLayout::Of(InCase.Format).value();
	const FPlaneLayout& Plane = Layout.Planes[static_cast<size_t>(InPlane)];
	const FSprite& Sprite = *InPlaced.Sprite;
	const int32 Component = Plane.Component[static_cast<size_t>(InX % Plane.Components)];
	const int32 Column = InX / Plane.Components;
	const int32 Left = static_cast<int32>(std::floor(InPlaced.X + 0.5)) + Sprite.Left;
	const int32 Top = static_cast<int32>(std::floor(InPlaced.Y + 0.5)) + Sprite.Top;
	double Ink = 0.0;
	double Alpha = 0.0;
	if (!StoredPlace(InPlaced, InCase.Orientation, InBefore.width, InBefore.height))
	{
		return SampleAt(InBefore, InPlane, InX, InY) >> Layout.SampleShift;
	}
	const int32 Across = 1 << Plane.ShiftX;
	const int32 Down = 1 << Plane.ShiftY;
	for (int32 Index = 0; Index < Across * Down; ++Index)
	{
		const auto [X, Y] = InCase.Orientation.ToUpright(Column * Across + Index % Across, InY * Down + Index / Across,
														 InBefore.width, InBefore.height);
		if (X >= Left && X < Left + Sprite.Width && Y >= Top && Y < Top + Sprite.Height)
		{
			const size_t Pixel = static_cast<size_t>((Y - Top) * Sprite.Width + X - Left);
			const auto [PixelInk, PixelAlpha] = ExpectedInk(Sprite, Pixel, InCase, Layout.Depth, Component);
			Ink += PixelInk / (Across * Down);
			Alpha += PixelAlpha / (Across * Down);
		}
	}
	const double Video = SampleAt(InBefore, InPlane, InX, InY) >> Layout.SampleShift;
	return Video * (1.0 - Alpha) + Ink;
}

FSprite MakeRandomSprite(std::mt19937& InRandom)
{
	FSprite Sprite;
	Sprite.Width = 1 + static_cast<int32>(InRandom() % 40);
	Sprite.Height = 1 + static_cast<int32>(InRandom() % 12);
	Sprite.Left = static_cast<int32>(InRandom() % 7) - 3;
	Sprite.Top = static_cast<int32>(InRandom() % 7) - 3;
	for (int32 Index = 0; Index < Sprite.Width * Sprite.Height; ++Index)
	{
		const auto Alpha = InRandom() % 3 == 0 ? 0 : std::min<std::mt19937::result_type>(255, InRandom() % 300);
		for (int32 Channel = 0; Channel < 3; ++Channel)
		{
			Sprite.Pixels.push_back(static_cast<uint8>(InRandom() % (Alpha + 1)));
		}
		Sprite.Pixels.push_back(static_cast<uint8>(Alpha));
	}
	return Sprite;
}

TEST_P(BlendFormats, EverySampleIsAsTheDefinitionHasIt)
{
	const FFormatCase& Case = GetParam();
	std::mt19937 Random(11);
	FBlendStyle Style;
	Style.Layout = FPixelLayout::Of(Case.Format).value();
	Style.Orientation = Case.Orientation;
	const double Tolerance = Style.Layout.Depth == 8 ? 1.6 : 1 << (Style.Layout.Depth - 8);
	std::unique_ptr<IBlender> Blender;
	for (int32 Round = 0; Round < 60; ++Round)
	{
		const FFramePtr Frame = MakeNoise(Case.Format, 45, 23, Random);
		Frame->colorspace = Case.Space;
		Frame->color_range = Case.Range;
		if (!Blender)
		{
			Style.Matrix = FColorMatrix::For(*Frame, Style.Layout.Depth);
			Blender = IBlender::Make(Style);
		}
		const FFramePtr Before(av_frame_clone(Frame.get()));
		ASSERT_GE(av_frame_make_writable(Frame.get()), 0);
		const double X = static_cast<double>(Random() % 1400) / 10.0 - 60.0;
		const double Y = static_cast<double>(Random() % 1000) / 10.0 - 40.0;
		const FPlacedSprite Placed{std::make_shared<FSprite>(MakeRandomSprite(Random)), X, Y, Case.Opacity};
		Blender->Blend(*Frame, {&Placed, 1});
		for (int32 Plane = 0; Plane < Style.Layout.PlaneCount; ++Plane)
		{
			const FPlaneLayout& Each = Style.Layout.Planes[static_cast<size_t>(Plane)];
			const int32 Width = AV_CEIL_RSHIFT(Frame->width, Each.ShiftX) * Each.Components;
			for (int32 Index = 0; Index < Width * AV_CEIL_RSHIFT(Frame->height, Each.ShiftY); ++Index)
			{
				const int32 Column = Index % Width;
				const int32 Row = Index / Width;
				const int32 Sample = SampleAt(*Frame, Plane, Column, Row) >> Style.Layout.SampleShift;
				ASSERT_NEAR(Sample, ExpectedSample(*Before, Placed, Case, Plane, Column, Row), Tolerance)
					<< "plane " << Plane << " at " << Column << ", " << Row << ", sprite at " << X << ", " << Y;
			}
		}
	}
}

constexpr FOrientation Upright{};
constexpr FOrientation Turned{true, false, true};
constexpr FOrientation Mirrored{false, true, false};

INSTANTIATE_TEST_SUITE_P(
	Formats, BlendFormats,
	testing::Values(FFormatCase{AV_PIX_FMT_YUV420P, AVCOL_SPC_BT709, AVCOL_RANGE_MPEG, Upright, 1.0},
					FFormatCase{AV_PIX_FMT_YUV420P, AVCOL_SPC_SMPTE170M, AVCOL_RANGE_JPEG, Turned, 1.0},
					FFormatCase{AV_PIX_FMT_YUV420P, AVCOL_SPC_BT709, AVCOL_RANGE_MPEG, Mirrored, 0.5},
					FFormatCase{AV_PIX_FMT_NV12, AVCOL_SPC_BT709, AVCOL_RANGE_MPEG, Upright, 1.0},
					FFormatCase{AV_PIX_FMT_NV21, AVCOL_SPC_BT709, AVCOL_RANGE_MPEG, Upright, 1.0},
					FFormatCase{AV_PIX_FMT_YUV420P10, AVCOL_SPC_BT2020_NCL, AVCOL_RANGE_MPEG, Upright, 1.0},
					FFormatCase{AV_PIX_FMT_YUV420P12, AVCOL_SPC_BT2020_NCL, AVCOL_RANGE_JPEG, Turned, 0.7},
					FFormatCase{AV_PIX_FMT_P010, AVCOL_SPC_BT2020_NCL, AVCOL_RANGE_MPEG, Upright, 1.0},
					FFormatCase{AV_PIX_FMT_YUV422P, AVCOL_SPC_SMPTE170M, AVCOL_RANGE_MPEG, Turned, 1.0},
					FFormatCase{AV_PIX_FMT_YUV444P10, AVCOL_SPC_BT709, AVCOL_RANGE_JPEG, Upright, 1.0},
					FFormatCase{AV_PIX_FMT_YUV411P, AVCOL_SPC_SMPTE170M, AVCOL_RANGE_MPEG, Upright, 1.0},
					FFormatCase{AV_PIX_FMT_YUV410P, AVCOL_SPC_SMPTE170M, AVCOL_RANGE_MPEG, Upright, 1.0}));

TEST(Blend, EachSpriteHasItsOwnOpacity)
{
	std::mt19937 Random(5);
	FBlendStyle Style;
	Style.Layout = FPixelLayout::Of(AV_PIX_FMT_YUV420P).value();
	const FFramePtr Frame = MakeNoise(AV_PIX_FMT_YUV420P, 32, 8, Random);
	std::fill_n(Frame->data[0], Frame->linesize[0] * 8, uint8{100});
	Frame->color_range = AVCOL_RANGE_MPEG;
	Style.Matrix = FColorMatrix::For(*Frame, 8);
	const auto Blender = IBlender::Make(Style);
	const auto White = MakeBox(8, 8, 255, 255, 255);
	const std::vector<FPlacedSprite> Sprites{
		{White, 0.0, 0.0}, {White, 8.0, 0.0, 0.5}, {White, 16.0, 0.0, 0.0}, {White, 24.0, 0.0}};
	Blender->Blend(*Frame, Sprites);
	for (const auto& [X, Expected] : {std::pair(4, 235), {12, 167}, {20, 100}, {28, 235}})
	{
		EXPECT_NEAR(Frame->data[0][4 * Frame->linesize[0] + X], Expected, 1) << X;
	}
}

TEST(Blend, NothingOutsideThePictureIsTouched)
{
	std::mt19937 Random(3);
	FBlendStyle Style;
	Style.Layout = FPixelLayout::Of(AV_PIX_FMT_YUV420P).value();
	const FFramePtr Frame = MakeNoise(AV_PIX_FMT_YUV420P, 31, 17, Random);
	Style.Matrix = FColorMatrix::For(*Frame, 8);
	const std::vector<uint8> Before(Frame->buf[0]->data, Frame->buf[0]->data + Frame->buf[0]->size);
	const auto Blender = IBlender::Make(Style);
	std::uniform_real_distribution<double> X(-60.0, 60.0);
	std::uniform_real_distribution<double> Y(-40.0, 40.0);
	std::vector<FPlacedSprite> Sprites;
	for (int32 Index = 0; Index < 500; ++Index)
	{
		Sprites.push_back({MakeBox(1 + Index % 50, 1 + Index % 30, 9, 9, 9), X(Random), Y(Random)});
	}
	for (const double Far : {1e300, -1e300, 2147483647.5, std::nan("")})
	{
		Sprites.push_back({MakeBox(9, 9, 9, 9, 9), Far, 0.0});
		Sprites.push_back({MakeBox(9, 9, 9, 9, 9), 0.0, Far});
	}
	Sprites.push_back({nullptr, 0.0, 0.0});
	Sprites.push_back({std::make_shared<FSprite>(), 0.0, 0.0});
	Blender->Blend(*Frame, Sprites);
	const uint8* const Luma = Frame->data[0];
	for (size_t Index = 0; Index < Before.size(); ++Index)
	{
		const ptrdiff_t At = Frame->buf[0]->data + Index - Luma;
		const bool bPadding = At >= 0 && At < 17 * Frame->linesize[0] && At % Frame->linesize[0] >= 31;
		ASSERT_TRUE(!bPadding || Before[Index] == Frame->buf[0]->data[Index]) << At;
	}
}

struct FColorCase
{
	AVColorSpace Space;
	AVColorRange Range;
	int32 Height;
	uint8 Red, Green, Blue;
	int32 Y, Cb, Cr;
};

TEST(Blend, ColorsAreThoseOfTheMatrixAndRange)
{
	// Code values of the color bars' primaries, from the recommendations' own tables.
	constexpr AVColorSpace None = AVCOL_SPC_UNSPECIFIED;
	constexpr FColorCase Cases[] = {
		{AVCOL_SPC_BT709, AVCOL_RANGE_MPEG, 64, 255, 255, 255, 235, 128, 128},
		{AVCOL_SPC_BT709, AVCOL_RANGE_MPEG, 64, 255, 0, 0, 63, 102, 240},
		{AVCOL_SPC_BT709, AVCOL_RANGE_MPEG, 64, 0, 0, 255, 32, 240, 118},
		{AVCOL_SPC_SMPTE170M, AVCOL_RANGE_MPEG, 64, 255, 0, 0, 81, 90, 240},
		{AVCOL_SPC_BT470BG, AVCOL_RANGE_JPEG, 64, 255, 0, 0, 76, 85, 255},
		{AVCOL_SPC_BT470BG, AVCOL_RANGE_JPEG, 64, 0, 0, 0, 0, 128, 128},
		{AVCOL_SPC_BT2020_NCL, AVCOL_RANGE_MPEG, 64, 255, 0, 0, 74, 97, 240},
		{None, AVCOL_RANGE_UNSPECIFIED, 64, 255, 0, 0, 81, 90, 240},
		{None, AVCOL_RANGE_UNSPECIFIED, 720, 255, 0, 0, 63, 102, 240},
	};
	std::mt19937 Random(1);
	for (const FColorCase& Case : Cases)
	{
		const FFramePtr Frame = MakeNoise(AV_PIX_FMT_YUV420P, 64, Case.Height, Random);
		Frame->colorspace = Case.Space;
		Frame->color_range = Case.Range;
		FBlendStyle Style;
		Style.Layout = FPixelLayout::Of(AV_PIX_FMT_YUV420P).value();
		Style.Matrix = FColorMatrix::For(*Frame, 8);
		const FPlacedSprite Box{MakeBox(16, 16, Case.Red, Case.Green, Case.Blue), 8.0, 8.0};
		IBlender::Make(Style)->Blend(*Frame, {&Box, 1});
		EXPECT_NEAR(SampleAt(*Frame, 0, 12, 12), Case.Y, 1) << Case.Space << " " << Case.Range;
		EXPECT_NEAR(SampleAt(*Frame, 1, 6, 6), Case.Cb, 1) << Case.Space << " " << Case.Range;
		EXPECT_NEAR(SampleAt(*Frame, 2, 6, 6), Case.Cr, 1) << Case.Space << " " << Case.Range;
	}
}

TEST(Blend, ANewSpriteAtADeadOnesAddressIsSeen)
{
	std::mt19937 Random(1);
	const FFramePtr Frame = MakeNoise(AV_PIX_FMT_YUV420P, 64, 64, Random);
	FBlendStyle Style;
	Style.Layout = FPixelLayout::Of(AV_PIX_FMT_YUV420P).value();
	Style.Matrix = FColorMatrix::For(*Frame, 8);
	const auto Blender = IBlender::Make(Style);
	FSprite Storage = *MakeBox(8, 8, 0, 0, 0);
	const auto Borrow = [&Storage]
	{
		return std::shared_ptr<const FSprite>(&Storage, [](const FSprite*) {});
	};
	for (const uint8 Gray : {uint8{0}, uint8{255}})
	{
		std::fill(Storage.Pixels.begin(), Storage.Pixels.end(), Gray);
		std::fill(Storage.Pixels.begin() + 3, Storage.Pixels.begin() + 4, uint8{255});
		const FPlacedSprite Placed{Borrow(), 0.0, 0.0};
		Blender->Blend(*Frame, {&Placed, 1});
		EXPECT_EQ(SampleAt(*Frame, 0, 0, 0), Gray == 0 ? 16 : 235);
	}
}

} // namespace
} // namespace Flitmark::Testing
