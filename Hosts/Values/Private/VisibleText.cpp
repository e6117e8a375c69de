#include "Values/VisibleText.h"

#include <cstdio>

namespace Flitmark
{

namespace
{

/** The first character, and how many bytes it takes; 0 bytes where they are not UTF-8. */
struct FDecoded
{
	char32_t Character = 0;
	std::size_t NumBytes = 0;
};

FDecoded Decode(std::string_view InText)
{
	const auto Byte = [InText](std::size_t InIndex)
	{
		return static_cast<unsigned char>(InText[InIndex]);
	};
	const unsigned char First = Byte(0);
	if (First < 0x80)
	{
		return {First, 1};
	}
	const std::size_t NumBytes = First >= 0xF0 ? 4 : First >= 0xE0 ? 3 : 2;
	if (First < 0xC2 || First > 0xF4 || InText.size() < NumBytes)
	{
		return {};
	}
	char32_t Character = First & (0x7Fu >> NumBytes);
	for (std::size_t Index = 1; Index < NumBytes; ++Index)
	{
		if ((Byte(Index) & 0xC0) != 0x80)
		{
			return {};
		}
		Character = Character << 6 | (Byte(Index) & 0x3Fu);
	}
	// Longer than needed, half of a surrogate pair, or beyond the last.
	constexpr char32_t Least[] = {0, 0, 0x80, 0x800, 0x10000};
	const bool bWrong = Character < Least[NumBytes] || Character > 0x10FFFF || (Character >> 11) == 0x1B;
	return bWrong ? FDecoded() : FDecoded{Character, NumBytes};
}

std::string Escape(const char* InFormat, unsigned int InNumber)
{
	char Text[16];
	std::snprintf(Text, sizeof(Text), InFormat, InNumber);
	return Text;
}

} // namespace

bool IsActedOn(char32_t InCharacter)
{
	return InCharacter < 0x20 || (InCharacter >= 0x7F && InCharacter < 0xA0) ||
		   (InCharacter >= 0x2028 && InCharacter <= 0x202E) || (InCharacter >= 0x2066 && InCharacter <= 0x2069);
}

std::string MakeVisible(std::string_view InText)
{
	std::string Result;
	while (!InText.empty())
	{
		const FDecoded Next = Decode(InText);
		const std::size_t NumBytes = Next.NumBytes > 0 ? Next.NumBytes : 1;
		if (Next.NumBytes == 0)
		{
			Result += Escape("\\x%02x", static_cast<unsigned char>(InText[0]));
		}
		else if (IsActedOn(Next.Character))
		{
			Result += Escape("\\u%04x", static_cast<unsigned int>(Next.Character));
		}
		else
		{
			Result += InText.substr(0, NumBytes);
		}
		InText.remove_prefix(NumBytes);
	}
	return Result;
}

} // namespace Flitmark
