#include "TerminalText.h"

#include "CoreTypes.h"
#include "Values/VisibleText.h"

#include <sys/ioctl.h>
#include <unistd.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace Flitmark
{

namespace
{

/** On one character, far more than any script stacks; marks take no columns, so that a line could hold millions. */
constexpr std::size_t MostMarks = 16;

std::size_t CountColumns(UChar32 InCharacter)
{
	if ((U_GET_GC_MASK(InCharacter) & (U_GC_M_MASK | U_GC_CF_MASK)) != 0)
	{
		return 0;
	}
	const auto Width = static_cast<UEastAsianWidth>(u_getIntPropertyValue(InCharacter, UCHAR_EAST_ASIAN_WIDTH));
	return Width == U_EA_WIDE || Width == U_EA_FULLWIDTH ? 2 : 1;
}

} // namespace

std::optional<std::size_t> GetTerminalWidth(std::FILE* InStream)
{
	constexpr std::size_t Usual = 80;
	const int File = fileno(InStream);
	if (isatty(File) == 0)
	{
		return std::nullopt;
	}
	winsize Size = {};
	return ioctl(File, TIOCGWINSZ, &Size) == 0 && Size.ws_col > 0 ? Size.ws_col : Usual;
}

std::string CutToColumns(std::string_view InText, std::size_t InColumns)
{
	const auto Text = icu::UnicodeString::fromUTF8(icu::StringPiece(InText.data(), static_cast<int32>(InText.size())));
	icu::UnicodeString Whole;
	std::size_t Columns = 0;
	std::size_t NumMarks = 0;
	/** As much of it as leaves room for an ellipsis. */
	int32 CutLength = 0;
	for (int32 Index = 0; Index < Text.length() && Columns <= InColumns; Index = Text.moveIndex32(Index, 1))
	{
		const UChar32 Character = Text.char32At(Index);
		const std::size_t Width = CountColumns(Character);
		NumMarks = Width == 0 ? NumMarks + 1 : 0;
		if (!IsActedOn(static_cast<char32_t>(Character)) && NumMarks <= MostMarks)
		{
			Whole += Character;
			Columns += Width;
			CutLength = Columns + 1 <= InColumns ? Whole.length() : CutLength;
		}
	}
	std::string Result;
	if (Columns <= InColumns)
	{
		Whole.toUTF8String(Result);
		return Result;
	}
	Whole.truncate(CutLength);
	Whole.toUTF8String(Result);
	Result.erase(Result.find_last_not_of(' ') + 1);
	return Result + "…";
}

} // namespace Flitmark
