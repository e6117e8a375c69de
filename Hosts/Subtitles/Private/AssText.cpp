#include "AssText.h"

#include "Formats/Utf8.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace Flitmark
{

namespace
{

/** Keeps a backslash from making an escape with what follows it; has no width and no glyph. */
constexpr uint32 WordJoiner = 0x2060;

void AppendFormatted(std::string& OutText, const char* InFormat, unsigned InFirst, unsigned InSecond = 0,
					 unsigned InThird = 0)
{
	char Text[32];
	std::snprintf(Text, sizeof(Text), InFormat, InFirst, InSecond, InThird);
	OutText += Text;
}

} // namespace

void AppendNumber(std::string& OutText, double InNumber)
{
	constexpr int Decimals = 3;
	// The largest double has 309 digits.
	char Text[352];
	const auto [End, Error] = std::to_chars(Text, Text + sizeof(Text), InNumber, std::chars_format::fixed, Decimals);
	std::string_view Number(Text, static_cast<std::size_t>(End - Text));
	while (Number.ends_with('0'))
	{
		Number.remove_suffix(1);
	}
	Number.remove_suffix(Number.ends_with('.') ? 1 : 0);
	OutText += Number == "-0" ? "0" : Number;
}

void AppendTime(std::string& OutText, int64 InHundredths)
{
	OutText += std::to_string(InHundredths / 360'000);
	AppendFormatted(OutText, ":%02u:%02u.%02u", static_cast<unsigned>(InHundredths / 6'000 % 60),
					static_cast<unsigned>(InHundredths / 100 % 60), static_cast<unsigned>(InHundredths % 100));
}

void AppendColor(std::string& OutText, FTextColor InColor)
{
	AppendFormatted(OutText, "%02X%02X%02X", InColor.Blue, InColor.Green, InColor.Red);
}

void AppendTransparency(std::string& OutText, uint8 InAlpha)
{
	AppendFormatted(OutText, "%02X", 255U - InAlpha);
}

void AppendLiteral(std::string& OutText, std::u32string_view InText, bool bInStart, bool bInEnd)
{
	const std::size_t First = bInStart ? std::min(InText.find_first_not_of(U' '), InText.size()) : 0;
	const std::size_t Last = bInEnd ? InText.find_last_not_of(U' ') + 1 : InText.size();
	for (std::size_t Index = 0; Index < InText.size(); ++Index)
	{
		const char32_t Character = InText[Index];
		if (Character == U'{' || Character == U'}')
		{
			OutText += '\\';
		}
		if (Character == U' ' && (Index < First || Index >= Last))
		{
			OutText += "\\h";
			continue;
		}
		AppendCharacter(OutText, Character);
		if (Character == U'\\')
		{
			AppendCharacter(OutText, WordJoiner);
		}
	}
}

} // namespace Flitmark
