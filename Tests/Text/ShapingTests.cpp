#include "TextLanguages.h"
#include "TextTestKit.h"

#include <set>

namespace Flitmark
{

namespace
{

std::vector<uint32> GetGlyphs(std::u16string_view InText)
{
	std::vector<uint32> Ids;
	for (const FShapedGlyph& Glyph : ShapeText(InText))
	{
		Ids.push_back(Glyph.Glyph);
	}
	return Ids;
}

} // namespace

TEST(Shaping, FallbackFindsEveryScript)
{
	const std::u16string_view Cases[] = {
		u"漢字汉字國",
		u"ひらがなカタカナ",
		u"ｱｲｳ",
		u"한글",
		u"Кириллица",
		u"Ελληνικά",
		u"العربية",
		u"עברית",
		u"ภาษาไทย",
		u"हिन्दी",
		u"தமிழ்",
		u"বাংলা",
		u"ગુજરાતી",
		u"తెలుగు",
		u"ಕನ್ನಡ",
		u"മലയാളം",
		u"සිංහල",
		u"ລາວ",
		u"ខ្មែរ",
		u"မြန်မာ",
		u"ქართული",
		u"Հայերեն",
		u"አማርኛ",
		u"Tiếng Việt",
		u"😀🥹🏳️‍⚧️",
		u"𠮷野家",
		u"★♪→①㊗",
		u"\ufffd",
	};
	for (const std::u16string_view Case : Cases)
	{
		const std::vector<uint32> Glyphs = GetGlyphs(Case);
		EXPECT_FALSE(Glyphs.empty());
		EXPECT_EQ(std::count(Glyphs.begin(), Glyphs.end(), 0U), 0) << ToNarrow(Case);
	}
}

/** From the last planes, which fonts leave unused, unlike the first plane's private-use characters. */
TEST(Shaping, WhatNoFontHasIsDrawnOncePerCharacter)
{
	EXPECT_EQ(GetGlyphs(u"\U0010fffd\U0010fffd\U000ffffd"), (std::vector<uint32>{0, 0, 0}));
}

/** If each character is drawn with one glyph, the glyphs show the order on the screen. */
TEST(Shaping, DirectionsAreOrderedAsTheyAreRead)
{
	constexpr std::pair<std::u16string_view, std::u16string_view> Cases[] = {
		{u"abc", u"abc"},
		{u"\u05d0\u05d1\u05d2", u"\u05d2\u05d1\u05d0"},
		{u"abc \u05d0\u05d1 def", u"abc \u05d1\u05d0 def"},
		{u"\u05d0\u05d1 12 \u05d2\u05d3", u"\u05d3\u05d2 12 \u05d1\u05d0"},
		{u"\u05d0\u05d1 (\u05d2)", u"(\u05d2) \u05d1\u05d0"},
		{u"\u05d0 abc \u05d1", u"\u05d1 abc \u05d0"},
		{u"\u05d0 abc, de \u05d1!", u"!\u05d1 abc, de \u05d0"},
		{u"\u05d0\u56fd\u5bb6\u05d1", u"\u05d1\u56fd\u5bb6\u05d0"},
	};
	for (const auto& [Logical, Visual] : Cases)
	{
		std::vector<uint32> Expected;
		for (const char16_t& Unit : Visual)
		{
			Expected.push_back(GetGlyphs({&Unit, 1}).front());
		}
		EXPECT_EQ(GetGlyphs(Logical), Expected) << ToNarrow(Logical);
		const std::vector<FShapedGlyph> Glyphs = ShapeText(Logical);
		const auto IsLeftOf = [](const FShapedGlyph& InLeft, const FShapedGlyph& InRight)
		{
			return InLeft.X < InRight.X;
		};
		EXPECT_TRUE(std::is_sorted(Glyphs.begin(), Glyphs.end(), IsLeftOf)) << ToNarrow(Logical);
	}
}

TEST(Shaping, LettersJoin)
{
	EXPECT_EQ(GetGlyphs(u"\u0644\u0627").size(), 1U) << "lam and alef are one";
	const std::vector<uint32> Beh = GetGlyphs(u"\u0628\u0628\u0628");
	EXPECT_EQ(std::set<uint32>(Beh.begin(), Beh.end()).size(), 3U) << "end, middle and start differ";
	EXPECT_EQ(GetGlyphs(u"\u0915\u094d\u0937"), GetGlyphs(u"\u0915\u094d\u0937")) << "a conjunct";
	EXPECT_LT(GetGlyphs(u"\u0915\u094d\u0937").size(), 3U);
}

TEST(Shaping, EmojiPresentationIsChosenAsWritten)
{
	struct FCase
	{
		std::u16string_view Text;
		bool bEmoji;
	};
	constexpr FCase Cases[] = {
		{u"😀", true},
		{u"😀\ufe0e", false},
		{u"\u2764", false},
		{u"\u2764\ufe0f", true},
		{u"\u2764\ufe0e", false},
		{u"\u00a9", false},
		{u"\u00a9\ufe0f", true},
		{u"1", false},
		{u"1\u20e3", true},
		{u"1\ufe0f\u20e3", true},
		{u"\u231a", true},
		{u"\u2602", false},
		{u"\u261d\U0001f3fd", true},
		{u"\U0001f1ef", true},
		{u"\u2603", false},
		{u"\u2764\u200d\U0001f525", true},
	};
	for (const FCase& Case : Cases)
	{
		const FShapedGlyph Glyph = ShapeText(Case.Text).front();
		EXPECT_EQ(GetFonts().Get(Glyph.Font).IsColor(), Case.bEmoji) << ToNarrow(Case.Text);
	}
}

TEST(Shaping, MarksStayWithTheirBase)
{
	const std::u16string_view Cases[] = {u"x\u0303",		   u"a\u20dd",
										 u"\u05d0\u05b8",	   u"\u0e17\u0e35\u0e48",
										 u"\u306f\u309a",	   u"q\u0301\u0323\u0336",
										 u"\u0995\u09be\u0981"};
	for (const std::u16string_view Case : Cases)
	{
		for (const FShapedGlyph& Glyph : ShapeText(Case))
		{
			EXPECT_EQ(Glyph.Font, ShapeText(Case).front().Font) << ToNarrow(Case);
			EXPECT_NE(Glyph.Glyph, 0U) << ToNarrow(Case);
		}
	}
}

TEST(Shaping, IdeographsTakeTheFormsOfTheirLanguage)
{
	const auto GetName = [](std::u16string_view InText)
	{
		return hb_language_to_string(GuessHanLanguage(InText));
	};
	EXPECT_STREQ(GetName(u"直の骨"), "ja");
	EXPECT_STREQ(GetName(u"直 한국"), "ko");
	EXPECT_STREQ(GetName(u"한국 の"), "ja");
	if (std::string_view(GetName(u"直骨")).starts_with("zh"))
	{
		EXPECT_NE(GetGlyphs(u"直の").front(), GetGlyphs(u"直").front()) << "drawn differently in Japan and China";
	}
}

} // namespace Flitmark
