#include "Containers/StringConv.h"
#include "Misc/FileHelper.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
std::u16string Decode(std::string_view Bytes)
{
	FString Text = TEXT("before");
	FFileHelper::BufferToString(Text, reinterpret_cast<const uint8*>(Bytes.data()), static_cast<int32>(Bytes.size()));
	return Text.GetStd();
}

std::string Encode(std::u16string_view Text)
{
	const FTCHARToUTF8 Converted(Text.data(), static_cast<int32>(Text.size()));
	return std::string(Converted.Get(), static_cast<std::size_t>(Converted.Length()));
}

TEST(Conversions, BytesBecomeText)
{
	using namespace std::string_literals;
	const struct
	{
		std::string Bytes;
		std::u16string Expected;
	} Cases[] = {
		{"", u""},
		{"plain", u"plain"},
		{"a\0b"s, u"a\0b"s},
		{"\xEF\xBB\xBFmarked", u"marked"},
		{"\xEF\xBB\xBF\xEF\xBB\xBF", u"\uFEFF"},
		{"\xFF\xFEh\0\x42\x30"s, u"h\u3042"},
		{"\xFE\xFF\0h\x30\x42"s, u"h\u3042"},
		{"caf\xC3\xA9 \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x98\x80", u"caf\u00E9 \u65E5\u672C \U0001F600"},
		{"\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF",
		 u"\x80\x7FF\x800\xFFFF\U00010000\U0010FFFF"},
		// One replacement for each maximal beginning of a character.
		{"\x80", u"\uFFFD"},
		{"\xC0\x80", u"\uFFFD\uFFFD"},
		{"\xE0\x80\x80", u"\uFFFD\uFFFD\uFFFD"},
		{"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
		{"\xF0\x80\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
		{"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
		{"\xF5\xFF", u"\uFFFD\uFFFD"},
		{"\xE6\x97", u"\uFFFD"},
		{"\xE6\x97x", u"\uFFFDx"},
		{"\xF0\x9F\x98", u"\uFFFD"},
		{"\xF0\x9F\x98\xE6\x97\xA5", u"\uFFFD\u65E5"},
		{"a\xF1\x80\x80\xE1\x80\xC2\x62\x80\x63\x80\xBF\x64", u"a\uFFFD\uFFFD\uFFFDb\uFFFDc\uFFFD\uFFFDd"},
	};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(Decode(Case.Bytes), Case.Expected) << testing::PrintToString(Case.Bytes);
	}
}

TEST(Conversions, TextBecomesBytes)
{
	const struct
	{
		std::u16string Text;
		std::string Expected;
	} Cases[] = {
		{u"", ""},
		{u"caf\u00E9 \u65E5 \U0001F600", "caf\xC3\xA9 \xE6\x97\xA5 \xF0\x9F\x98\x80"},
		{std::u16string(1, TCHAR(0xD83D)), "\xEF\xBF\xBD"},
		{{TCHAR(0xDE00), TCHAR(0xD83D)}, "\xEF\xBF\xBD\xEF\xBF\xBD"},
		{{TCHAR(0xD83D), u'x'}, "\xEF\xBF\xBDx"},
		{{u'a', u'\0', u'b'}, std::string("a\0b", 3)},
	};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(Encode(Case.Text), Case.Expected) << testing::PrintToString(Case.Expected);
	}
	EXPECT_STREQ(TCHAR_TO_UTF8(TEXT("caf\u00E9")), "caf\xC3\xA9");
	EXPECT_EQ(std::u16string(UTF8_TO_TCHAR("caf\xC3\xA9")), u"caf\u00E9");
}

TEST(Conversions, LongTextsComeBackWhole)
{
	// Characters of all widths, so that some straddle every block boundary of the conversion.
	const std::u16string_view Piece = u"ascii runs of some length \u00E9\u65E5\u672C\U0001F600\u8A9E";
	std::u16string Text;
	for (int32 Round = 0; Text.size() < 40'000; ++Round)
	{
		Text += Piece.substr(static_cast<std::size_t>(Round % 26));
	}
	EXPECT_EQ(Decode(Encode(Text)), Text);
}
} // namespace
