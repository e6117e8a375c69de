#pragma once

#include "Shaper.h"
#include "Text/TextEngine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

namespace Flitmark
{

/** The font order depends on the locale; the expected glyphs and kerning need a fixed one. */
inline const int LocaleIsSet = setenv("LC_ALL", "C.UTF-8", 1);

inline std::unique_ptr<FTextEngine> MakeEngine(const FTextOptions& InOptions)
{
	std::string Error;
	std::unique_ptr<FTextEngine> Engine = FTextEngine::Create(InOptions, Error);
	EXPECT_NE(Engine, nullptr) << Error;
	return Engine;
}
inline std::unique_ptr<FTextEngine> MakeEngine(const std::string& InFamily = {})
{
	return MakeEngine(FTextOptions{InFamily});
}

/** One engine for all tests that don't ask for a fresh one: fonts take a while to find. */
inline FTextEngine& GetEngine()
{
	static const std::unique_ptr<FTextEngine> Engine = MakeEngine();
	return *Engine;
}

inline FFontSet& GetFonts()
{
	static std::string Error;
	static const std::unique_ptr<FFontSet> Fonts = FFontSet::Create({}, Error);
	return *Fonts;
}

inline std::vector<FShapedGlyph> ShapeText(std::u16string_view InText)
{
	static FShaper Shaper(GetFonts());
	std::vector<FShapedGlyph> Glyphs;
	Shaper.Shape(InText, Glyphs);
	return Glyphs;
}

inline std::string ToNarrow(std::u16string_view InText)
{
	std::string Text;
	for (const char16_t Unit : InText)
	{
		char Hex[8];
		std::snprintf(Hex, sizeof(Hex), "%04x ", static_cast<unsigned>(Unit));
		Text += Hex;
	}
	return Text;
}

/** Comments in many languages, with emoji, combining marks and both directions. */
inline const std::vector<std::u16string>& GetSamples()
{
	static const std::vector<std::u16string> Samples = {
		u"The quick brown fox jumps over gypsy quartz |(){}[]",
		u"AVATAR To. Ty fi ffl, 3.14 -- \"quoted\"",
		u"前方高能预警！！这一段真的太好看了，哈哈哈哈",
		u"こんにちは世界、トークかわいい〜 草wwww",
		u"재미있어요 ㅋㅋㅋㅋ 최고!!",
		u"Привет, мир! Γειά σου Κόσμε",
		u"Tiếng Việt có nhiều dấu: ễ ộ ữ",
		u"مرحبا بالعالم، 123 abc (نص)",
		u"שלום עולם! נִקּוּד",
		u"สวัสดีชาวโลก ที่นี่ ป้ำ",
		u"नमस्ते दुनिया क्षत्रिय श्री",
		u"வணக்கம் உலகம் স্বাগতম ਜੀ ਆਇਆਂ",
		u"😀👍🏽👨‍👩‍👧‍👦🇯🇵❤️1️⃣ and text",
		u"x̃ Z̷a̴lgó ① ★ ♪ → ½",
		u"first\nsecond line\r\n\u7b2c\u4e09\u884c",
	};
	return Samples;
}

/** Where a sprite's pixels with some alpha are, from the comment's corner; Right and Bottom are exclusive. */
struct FInk
{
	int32 Left = INT32_MAX;
	int32 Top = INT32_MAX;
	int32 Right = INT32_MIN;
	int32 Bottom = INT32_MIN;
};

/** InChannel: 0 to 3 for red to alpha. */
inline FInk FindInk(const FSprite& InSprite, std::size_t InChannel = 3, uint8 InAtLeast = 1)
{
	FInk Ink;
	for (int32 Index = 0; Index < InSprite.Width * InSprite.Height; ++Index)
	{
		if (InSprite.Pixels[static_cast<std::size_t>(Index) * 4 + InChannel] >= InAtLeast)
		{
			const int32 X = InSprite.Left + Index % InSprite.Width;
			const int32 Y = InSprite.Top + Index / InSprite.Width;
			Ink = {std::min(Ink.Left, X), std::min(Ink.Top, Y), std::max(Ink.Right, X + 1),
				   std::max(Ink.Bottom, Y + 1)};
		}
	}
	return Ink;
}

} // namespace Flitmark
