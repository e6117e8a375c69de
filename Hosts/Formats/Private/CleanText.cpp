#include "Formats/CleanText.h"

#include "Formats/Utf8.h"

#include <cstring>

namespace Flitmark
{

namespace
{

constexpr std::string_view Replacement = "\xEF\xBF\xBD";

/** Whether eight bytes are all printable ASCII. */
bool IsPlainAscii(uint64 InEight)
{
	constexpr uint64 Ones = 0x0101010101010101U;
	constexpr uint64 HighBits = Ones * 0x80;
	// No byte has its high bit set, none is below a blank, and none is 0x7F.
	return ((InEight | (InEight - Ones * 0x20) | (InEight + Ones)) & HighBits) == 0;
}

/** Whether a character stays as it is; wrong bytes come as a negative one. */
bool IsKept(UChar32 InCharacter)
{
	const bool bControl = (InCharacter < 0x20 && InCharacter != '\n' && InCharacter != '\t') || InCharacter == 0x7F;
	const bool bNone = (InCharacter & 0xFFFE) == 0xFFFE;
	return !bControl && !bNone;
}

/** Whether a three-byte character begins here that, by its first byte alone, is to be kept. */
bool IsPlainTriple(std::string_view InText, std::size_t InOffset)
{
	if (InText.size() - InOffset < 3)
	{
		return false;
	}
	const auto GetByte = [InText, InOffset](std::size_t InIndex)
	{
		return static_cast<unsigned char>(InText[InOffset + InIndex]);
	};
	// Not overlong (E0), no surrogate (ED), none of the last (EF).
	return GetByte(0) > 0xE0 && GetByte(0) < 0xED && (GetByte(1) & 0xC0) == 0x80 && (GetByte(2) & 0xC0) == 0x80;
}

/** How much of the text's start passes: eight bytes by their test, or a character by the other. */
template <typename EightTest, typename CharacterTest>
std::size_t FindFirstNot(std::string_view InText, EightTest InIsPlain, CharacterTest InPasses)
{
	std::size_t Offset = 0;
	while (Offset < InText.size())
	{
		uint64 Eight = 0;
		if (InText.size() - Offset >= sizeof(Eight))
		{
			std::memcpy(&Eight, InText.data() + Offset, sizeof(Eight));
			if (InIsPlain(Eight))
			{
				Offset += sizeof(Eight);
				continue;
			}
		}
		if (IsPlainTriple(InText, Offset))
		{
			Offset += 3;
			continue;
		}
		const std::size_t Start = Offset;
		if (!InPasses(TakeCharacter(InText, Offset)))
		{
			return Start;
		}
	}
	return InText.size();
}

/** How much of the text's start needs no cleaning. */
std::size_t FindUnclean(std::string_view InText)
{
	return FindFirstNot(InText, IsPlainAscii, IsKept);
}

/** How much of the text's start is UTF-8. */
std::size_t FindWrongByte(std::string_view InText)
{
	constexpr uint64 HighBits = 0x8080808080808080U;
	return FindFirstNot(
		InText, [](uint64 InEight) { return (InEight & HighBits) == 0; },
		[](UChar32 InCharacter) { return InCharacter >= 0; });
}

std::string CleanFrom(std::string_view InText, std::size_t InFirst)
{
	std::string Clean(InText.substr(0, InFirst));
	std::size_t Offset = InFirst;
	while (Offset < InText.size())
	{
		const std::size_t Start = Offset;
		const UChar32 Character = TakeCharacter(InText, Offset);
		if (Character == '\r')
		{
			Clean += InText.substr(Offset, 1) == "\n" ? "" : "\n";
		}
		else if (Character < 0)
		{
			Clean += Replacement;
		}
		else if (IsKept(Character))
		{
			Clean += InText.substr(Start, Offset - Start);
		}
	}
	return Clean;
}

} // namespace

void CleanText(std::string& InOutText)
{
	const std::size_t First = FindUnclean(InOutText);
	if (First < InOutText.size())
	{
		InOutText = CleanFrom(InOutText, First);
	}
}

std::string MakeCleanText(std::string_view InText)
{
	const std::size_t First = FindUnclean(InText);
	return First == InText.size() ? std::string(InText) : CleanFrom(InText, First);
}

void BreakLines(std::string& InOutText)
{
	std::size_t From = InOutText.find("/n");
	if (From == std::string::npos)
	{
		return;
	}
	std::size_t To = From;
	while (From < InOutText.size())
	{
		const bool bBreak = InOutText[From] == '/' && From + 1 < InOutText.size() && InOutText[From + 1] == 'n';
		InOutText[To++] = bBreak ? '\n' : InOutText[From];
		From += bBreak ? 2 : 1;
	}
	InOutText.resize(To);
}

bool IsUtf8(std::string_view InText)
{
	return FindWrongByte(InText) == InText.size();
}

void MakeUtf8(std::string& InOutText)
{
	std::string Valid;
	std::size_t Copied = 0;
	for (std::size_t Offset = FindWrongByte(InOutText); Offset < InOutText.size();)
	{
		const std::size_t Start = Offset;
		if (TakeCharacter(InOutText, Offset) < 0)
		{
			Valid.append(InOutText, Copied, Start - Copied).append(Replacement);
			Copied = Offset;
		}
	}
	if (Copied > 0)
	{
		InOutText = Valid.append(InOutText, Copied);
	}
}

} // namespace Flitmark
