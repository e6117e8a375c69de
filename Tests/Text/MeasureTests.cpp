#include "TextMetrics.h"
#include "TextTestKit.h"

#include <cmath>
#include <limits>
#include <random>

namespace Flitmark
{

namespace
{

constexpr float Size = 24.0F;
constexpr double Em = 32.0;
constexpr double Border = 2.0 * Em / 16.0;

double GetAdvance(std::u16string_view InText)
{
	const double Width = GetEngine().Measure(InText, Size).Width;
	return Width > 0.0 ? Width - Border : 0.0;
}

std::u16string Repeat(std::u16string_view InText, int InCount)
{
	std::u16string Text;
	for (int Index = 0; Index < InCount; ++Index)
	{
		Text += InText;
	}
	return Text;
}

} // namespace

TEST(Measure, WidthsAddUp)
{
	struct FCase
	{
		std::u16string_view Text;
		double Ems;
	};
	constexpr FCase Cases[] = {
		{u"", 0.0},		{u"国", 1.0},	{u"国国国", 3.0}, {u"日本語、です！", 7.0},
		{u"ｗｗ", 2.0}, {u"\t国", 2.0}, {u"😀", 1.0625},
	};
	for (const FCase& Case : Cases)
	{
		EXPECT_NEAR(GetAdvance(Case.Text), Case.Ems * Em, 0.01 * Em) << ToNarrow(Case.Text);
	}
	EXPECT_DOUBLE_EQ(GetAdvance(u"国") + GetAdvance(u"hello"), GetAdvance(u"国hello"));
	EXPECT_LT(GetAdvance(u"AV"), GetAdvance(u"A") + GetAdvance(u"V")) << "Latin is kerned";
}

TEST(Measure, HeightIsThatOfTheLines)
{
	struct FCase
	{
		std::u16string_view Text;
		int Lines;
	};
	constexpr FCase Cases[] = {
		{u"", 1},	 {u"a", 1},		   {u"a\nb", 2},	 {u"a\r\nb", 2},   {u"a\rb", 2},	{u"a\n\rb", 3},
		{u"a\n", 2}, {u"\r\n\r\n", 3}, {u"a\n\n\nb", 4}, {u"a\u2028b", 1}, {u"😀 ẪǴ नि", 1},
	};
	for (const FCase& Case : Cases)
	{
		EXPECT_DOUBLE_EQ(GetEngine().Measure(Case.Text, Size).Height, Case.Lines * 1.25 * Em) << ToNarrow(Case.Text);
	}
	EXPECT_DOUBLE_EQ(GetEngine().Measure(u"a\nlonger one\nb", Size).Width,
					 GetEngine().Measure(u"longer one", Size).Width);
	EXPECT_DOUBLE_EQ(GetEngine().Measure(u"\n\n", Size).Width, 0.0);
}

/** The overlay stacks comments in lanes of 15.12 canvas units. */
TEST(Measure, UsualSizesFitLanes)
{
	struct FCase
	{
		float Points;
		int Lanes;
	};
	constexpr FCase Cases[] = {{9.0F, 1}, {10.0F, 2}, {18.0F, 2}, {24.0F, 3}, {27.0F, 3}, {36.0F, 4}, {72.0F, 8}};
	for (const FCase& Case : Cases)
	{
		const double Height = GetEngine().Measure(u"国g", Case.Points).Height;
		EXPECT_EQ(std::ceil(Height / 15.12), Case.Lanes) << Case.Points;
	}
}

TEST(Measure, IsLinearInSize)
{
	for (const std::u16string& Text : GetSamples())
	{
		const FTextSize One = GetEngine().Measure(Text, 1.0F);
		for (const float Points : {0.25F, 7.0F, 24.0F, 1000.0F, 2147483647.0F})
		{
			const FTextSize Scaled = GetEngine().Measure(Text, Points);
			EXPECT_NEAR(Scaled.Width, One.Width * Points, 1e-12 * Scaled.Width);
			EXPECT_NEAR(Scaled.Height, One.Height * Points, 1e-12 * Scaled.Height);
		}
	}
}

TEST(Measure, SizesThatAreNoneGiveNothing)
{
	constexpr float Infinity = std::numeric_limits<float>::infinity();
	for (const float Points : {0.0F, -0.0F, -1.0F, -2147483648.0F, -Infinity, std::numeric_limits<float>::quiet_NaN()})
	{
		const FTextSize Nothing = GetEngine().Measure(u"text", Points);
		EXPECT_EQ(Nothing.Width, 0.0) << Points;
		EXPECT_EQ(Nothing.Height, 0.0) << Points;
	}
	EXPECT_TRUE(std::isfinite(GetEngine().Measure(u"text", Infinity).Width));
}

TEST(Measure, MarksHaveNoWidth)
{
	constexpr std::pair<std::u16string_view, std::u16string_view> Cases[] = {
		{u"e\u0301x", u"\u00e9x"},
		{u"x\u0303", u"x"},
		{u"a\u0300\u0301\u0302\u0316\u0317b", u"ab"},
		{u"\u0e01\u0e47", u"\u0e01"},
		{u"\u05d1\u05b0", u"\u05d1"},
		{u"\u304b\u3099", u"\u304c"},
		{u"a\u200d\u200bb", u"ab"},
		{u"\u8fbb\U000e0100", u"\u8fbb"},
		{u"\u0628\u064e", u"\u0628"},
		{u"a\u2060\u200e\u202a\u202cb", u"ab"},
	};
	for (const auto& [Marked, Plain] : Cases)
	{
		EXPECT_NEAR(GetAdvance(Marked), GetAdvance(Plain), 1e-9) << ToNarrow(Marked);
	}
}

TEST(Measure, EmojiSequencesAreOneEmoji)
{
	const std::u16string_view Cases[] = {
		u"👍🏽",
		u"👨‍👩‍👧‍👦",
		u"🇯🇵",
		u"❤️",
		u"1️⃣",
		u"🏳️‍🌈",
		u"🏴󠁧󠁢󠁥󠁮󠁧󠁿",
		u"🧑🏿‍🚀",
		u"☺️",
		u"❤️‍🔥",
		u"#️⃣",
		u"🤷🏻‍♀️",
	};
	const double One = GetAdvance(u"😀");
	EXPECT_NEAR(One, 1.0625 * Em, 0.01);
	for (const std::u16string_view Case : Cases)
	{
		EXPECT_NEAR(GetAdvance(Case), One, 0.01) << ToNarrow(Case);
		EXPECT_NEAR(GetAdvance(Repeat(Case, 3)), 3.0 * One, 0.03) << ToNarrow(Case);
	}
}

/** The sum over single characters must equal the shaped width of the whole: measuring and painting rely on it. */
TEST(Measure, SummedAdvancesAreTheShapedOnes)
{
	struct FRange
	{
		char16_t First;
		char16_t Last;
	};
	constexpr FRange Ranges[] = {{0x20, 0x7e},	   {0xa1, 0xbf},	 {0x2010, 0x205e}, {0x2190, 0x2199},
								 {0x2460, 0x2473}, {0x25a0, 0x25ef}, {0x3000, 0x303f}, {0x3041, 0x30ff},
								 {0x3105, 0x312f}, {0x3131, 0x318e}, {0x3200, 0x33ff}, {0x4e00, 0x9fff},
								 {0xac00, 0xd7a3}, {0xff01, 0xffee}, {0x1100, 0x11ff}};
	std::mt19937 Random(7);
	FShaper Shaper(GetFonts());
	std::vector<FShapedGlyph> Glyphs;
	for (int Round = 0; Round < 20000; ++Round)
	{
		std::u16string Text;
		for (auto Count = 1 + Random() % 12; Count != 0; --Count)
		{
			// Mostly neighbors from the same range, where there would be kerning.
			const FRange& Range =
				Ranges[(static_cast<unsigned>(Round) + (Random() % 4 == 0 ? Random() : 0)) % std::size(Ranges)];
			Text += static_cast<char16_t>(Range.First + Random() % (Range.Last - Range.First + 1U));
		}
		Glyphs.clear();
		ASSERT_EQ(Shaper.Measure(Text).LongestAdvance, Shaper.Shape(Text, Glyphs).LongestAdvance) << ToNarrow(Text);
	}
}

TEST(Measure, EveryPairOfKanaAddsUp)
{
	FShaper Shaper(GetFonts());
	std::vector<FShapedGlyph> Glyphs;
	for (char16_t First = 0x3041; First <= 0x30ff; ++First)
	{
		for (char16_t Second = 0x3041; Second <= 0x30ff; ++Second)
		{
			const char16_t Pair[] = {First, Second, u'\u3001'};
			const std::u16string_view Text(Pair, 3);
			Glyphs.clear();
			ASSERT_EQ(Shaper.Measure(Text).LongestAdvance, Shaper.Shape(Text, Glyphs).LongestAdvance) << ToNarrow(Text);
		}
	}
}

} // namespace Flitmark
