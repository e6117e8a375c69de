#include "TextTestKit.h"

#include <cmath>

namespace Flitmark
{

namespace
{

constexpr FTextScale OneToOne = {1.0, 1.0};
constexpr float Size = 24.0F;
constexpr double Em = 32.0;

/** The middle pixel of a full block, which covers all of its em. */
std::array<int, 4> GetMiddle(const FSprite& InSprite)
{
	const auto Middle = static_cast<std::size_t>(InSprite.Height / 2 * InSprite.Width + InSprite.Width / 2) * 4;
	const std::vector<uint8>& Pixels = InSprite.Pixels;
	return {Pixels[Middle], Pixels[Middle + 1], Pixels[Middle + 2], Pixels[Middle + 3]};
}

uint8 GetMaximum(const FSprite& InSprite, std::size_t InChannel)
{
	uint8 Maximum = 0;
	for (std::size_t Index = InChannel; Index < InSprite.Pixels.size(); Index += 4)
	{
		Maximum = std::max(Maximum, InSprite.Pixels[Index]);
	}
	return Maximum;
}

} // namespace

/** Ink may extend beyond the box by accents, swashes and the outline's minimum width, but no further. */
TEST(Sprite, LiesInItsMeasuredBox)
{
	constexpr FTextScale Scales[] = {OneToOne, {2.0, 2.0}, {0.75, 0.75}, {1.5, 1.0}, {1.37, 1.37}};
	for (const std::u16string& Text : GetSamples())
	{
		for (const FTextScale& Scale : Scales)
		{
			for (const float Points : {10.0F, 18.0F, 24.0F, 72.0F})
			{
				const FTextSize Box = GetEngine().Measure(Text, Points);
				const FInk Ink = FindInk(GetEngine().Rasterize(Text, Points, {}, Scale));
				const double Overhang = Points * 96.0 / 72.0 * 0.3;
				SCOPED_TRACE(ToNarrow(Text.substr(0, 8)) + std::to_string(Points) + " at " + std::to_string(Scale.X));
				EXPECT_GE(Ink.Left, -Overhang * Scale.X - 1.0);
				EXPECT_GE(Ink.Top, -Overhang * Scale.Y - 1.0);
				EXPECT_LE(Ink.Right, (Box.Width + Overhang) * Scale.X + 1.0);
				EXPECT_LE(Ink.Bottom, (Box.Height + Overhang) * Scale.Y + 1.0);
			}
		}
	}
}

TEST(Sprite, IdeographsAndDescendersLieInTheirLine)
{
	for (const float Points : {18.0F, 24.0F, 36.0F, 72.0F})
	{
		for (const std::u16string_view Text : {u"国鬱語警ー", u"Agjpqy dlk", u"😀👍🏽", u"한글"})
		{
			const FInk Ink = FindInk(GetEngine().Rasterize(Text, Points, {}, OneToOne), 3, 16);
			EXPECT_GE(Ink.Top, 0) << ToNarrow(Text) << Points;
			EXPECT_LE(Ink.Bottom, std::ceil(GetEngine().Measure(Text, Points).Height)) << ToNarrow(Text) << Points;
		}
	}
}

/**
 * A full block's ink is slightly wider than its advance: it shows where the pen began and ended, between the outlines.
 */
TEST(Sprite, PenRunsFromOutlineToOutline)
{
	for (const double Scale : {0.5, 0.75, 1.0, 1.1, 1.37, 2.0, 3.3})
	{
		for (const int Count : {1, 2, 7, 40})
		{
			const std::u16string Blocks(static_cast<std::size_t>(Count), u'\u2588');
			const double Width = GetEngine().Measure(Blocks, Size).Width * Scale;
			const double Outline = Em / 16.0 * Scale;
			const FInk Fill = FindInk(GetEngine().Rasterize(Blocks, Size, {}, {Scale, Scale}), 0, 128);
			const double Tolerance = 0.75 + 0.015 * Em * Scale;
			EXPECT_NEAR(Fill.Left, Outline, Tolerance) << Count << " at " << Scale;
			EXPECT_NEAR(Fill.Right, Width - Outline, Tolerance) << Count << " at " << Scale;
		}
	}
}

TEST(Sprite, LinesStandBeneathEachOther)
{
	const FInk One = FindInk(GetEngine().Rasterize(u"国", Size, {}, OneToOne));
	const FInk Three = FindInk(GetEngine().Rasterize(u"\n\n国", Size, {}, OneToOne));
	EXPECT_EQ(Three.Top - One.Top, 80);
	EXPECT_EQ(Three.Left, One.Left);
}

TEST(Sprite, PixelsMayBeOblong)
{
	const FInk Square = FindInk(GetEngine().Rasterize(u"国O😀", Size, {}, OneToOne));
	const FInk Wide = FindInk(GetEngine().Rasterize(u"国O😀", Size, {}, {2.0, 1.0}));
	EXPECT_NEAR(Wide.Right - Wide.Left, 2 * (Square.Right - Square.Left), 3);
	EXPECT_NEAR(Wide.Bottom, Square.Bottom, 1);
	EXPECT_NEAR(Wide.Top, Square.Top, 1);
}

TEST(Sprite, ColorAndAlphaAreExact)
{
	struct FCase
	{
		FTextColor Color;
		std::array<int, 4> Middle;
	};
	constexpr FCase Cases[] = {
		{{255, 255, 255, 255}, {255, 255, 255, 255}},
		{{255, 128, 0, 255}, {255, 128, 0, 255}},
		{{1, 2, 3, 255}, {1, 2, 3, 255}},
		{{255, 128, 0, 128}, {128, 64, 0, 128}},
		{{0, 0, 0, 1}, {0, 0, 0, 1}},
	};
	for (const FCase& Case : Cases)
	{
		EXPECT_EQ(GetMiddle(GetEngine().Rasterize(u"\u2588", Size, Case.Color, OneToOne)), Case.Middle);
	}
}

TEST(Sprite, AlphaFadesOutlineAndEmojiToo)
{
	for (const std::u16string_view Text : {u"国", u"😀"})
	{
		const FSprite Full = GetEngine().Rasterize(Text, Size, {255, 255, 255, 255}, OneToOne);
		const FSprite Half = GetEngine().Rasterize(Text, Size, {255, 255, 255, 128}, OneToOne);
		ASSERT_EQ(Full.Pixels.size(), Half.Pixels.size());
		for (std::size_t Index = 0; Index < Full.Pixels.size(); ++Index)
		{
			ASSERT_NEAR(Half.Pixels[Index], Full.Pixels[Index] * 128.0 / 255.0, 2.0);
		}
		EXPECT_EQ(GetEngine().Rasterize(Text, Size, {255, 255, 255, 0}, OneToOne).Width, 0);
	}
}

TEST(Sprite, ColorsAreMultipliedByAlpha)
{
	for (const std::u16string& Text : GetSamples())
	{
		for (const FTextColor& Color : {FTextColor{255, 255, 255, 255}, FTextColor{255, 40, 200, 77}})
		{
			const FSprite Sprite = GetEngine().Rasterize(Text, Size, Color, OneToOne);
			for (std::size_t Index = 0; Index < Sprite.Pixels.size(); ++Index)
			{
				ASSERT_LE(Sprite.Pixels[Index], Sprite.Pixels[Index | 3U]) << ToNarrow(Text);
			}
		}
	}
}

TEST(Sprite, WhiteTextReadsOnWhite)
{
	for (const float Points : {10.0F, 24.0F, 72.0F})
	{
		const FSprite Sprite = GetEngine().Rasterize(u"\u2588", Points, {}, OneToOne);
		const FInk Fill = FindInk(Sprite, 0, 128);
		const FInk All = FindInk(Sprite, 3, 80);
		const int32 Least = std::max(1, static_cast<int32>(Points / 72.0F * 96.0F / 16.0F) - 1);
		EXPECT_GE(Fill.Left - All.Left, Least) << Points;
		EXPECT_GE(Fill.Top - All.Top, Least) << Points;
		EXPECT_GE(All.Right - Fill.Right, Least) << Points;
		EXPECT_GE(All.Bottom - Fill.Bottom, Least) << Points;
		const std::size_t Edge =
			static_cast<std::size_t>(Sprite.Height / 2 * Sprite.Width + Fill.Left - 1 - Sprite.Left) * 4;
		const int OnWhite = Sprite.Pixels[Edge] + 255 - Sprite.Pixels[Edge + 3];
		EXPECT_LT(OnWhite, 160) << Points;
	}
}

TEST(Sprite, EmojiKeepTheirColors)
{
	const FSprite Heart = GetEngine().Rasterize(u"❤️", 48.0F, {0, 0, 255, 255}, OneToOne);
	const std::array<int, 4> Middle = GetMiddle(Heart);
	EXPECT_GT(Middle[0], 150);
	EXPECT_LT(Middle[2], 100);
	EXPECT_EQ(GetMaximum(Heart, 3), 255);
	const FInk Ink = FindInk(Heart, 3, 64);
	EXPECT_NEAR(Ink.Right - Ink.Left, 64, 8) << "as large as an ideograph";
	EXPECT_NEAR(Ink.Bottom - Ink.Top, 60, 8);
}

TEST(Sprite, OutlinesAreAsWideAsAsked)
{
	int32 Before = -1;
	for (const double Outline : {0.0, 0.5, 1.0, 2.0, 4.0})
	{
		const std::unique_ptr<FTextEngine> Engine = MakeEngine({.Outline = Outline});
		const FTextSize Box = Engine->Measure(u"I", 96.f);
		EXPECT_EQ(Box.Width, GetEngine().Measure(u"I", 96.f).Width) << "lanes would depend on it";
		const FSprite Sprite = Engine->Rasterize(u"I", 96.f, {}, {});
		// The letter is white, so anything else is outline.
		const FInk Letter = FindInk(Sprite, 0);
		const FInk All = FindInk(Sprite);
		const int32 Edge = Letter.Left - All.Left;
		EXPECT_NEAR(Edge, Outline * 128.0 / 16.0, 1.0);
		EXPECT_GT(Edge, Before);
		EXPECT_EQ(All.Bottom - Letter.Bottom > 0, Outline > 0.0);
		Before = Edge;
	}
}

TEST(Sprite, BoldLettersAreBolderInEveryScript)
{
	const std::unique_ptr<FTextEngine> Bold = MakeEngine({.bBold = true});
	const auto CountInk = [](FTextEngine& InEngine, std::u16string_view InText)
	{
		int64 Ink = 0;
		const FSprite Sprite = InEngine.Rasterize(InText, 48.f, {}, {});
		for (std::size_t Index = 0; Index < Sprite.Pixels.size(); Index += 4)
		{
			Ink += Sprite.Pixels[Index];
		}
		return static_cast<double>(Ink);
	};
	for (const std::u16string_view Text : {u"Hill", u"Привет", u"弹幕"})
	{
		EXPECT_GT(CountInk(*Bold, Text), 1.1 * CountInk(GetEngine(), Text)) << ToNarrow(Text);
	}
}

TEST(Sprite, BlanksPaintNothing)
{
	for (const std::u16string_view Text : {u"", u" ", u"\u3000\t ", u"\n", u"\u200d\ufe0f"})
	{
		const FSprite Sprite = GetEngine().Rasterize(Text, Size, {}, OneToOne);
		EXPECT_EQ(Sprite.Width, 0) << ToNarrow(Text);
		EXPECT_TRUE(Sprite.Pixels.empty());
		EXPECT_FALSE(Sprite.bCut);
	}
}

} // namespace Flitmark
