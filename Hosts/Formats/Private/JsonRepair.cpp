#include "JsonRepair.h"

#include <algorithm>
#include <charconv>
#include <unicode/utf16.h>

namespace Flitmark
{

namespace
{

/** How far to look for the value's end: most damaged ones are short. */
constexpr std::size_t MaxSize = 65536;

/** The code unit of `\uXXXX` at a text's start; negative if there is none. */
int ReadEscapedUnit(std::string_view InText)
{
	constexpr std::size_t Size = 6;
	int Unit = 0;
	if (InText.size() < Size || !InText.starts_with("\\u") || InText[2] == '-')
	{
		return -1;
	}
	const auto [Stop, Error] = std::from_chars(InText.data() + 2, InText.data() + Size, Unit, 16);
	return Error == std::errc() && Stop == InText.data() + Size ? Unit : -1;
}

class FStringRepairer
{
public:
	FStringRepairer(std::string_view InText, std::string& OutRepaired)
		: Text(InText.substr(0, MaxSize))
		, Repaired(OutRepaired)
	{
	}

	bool Repair(std::size_t& OutEnd)
	{
		Repaired.clear();
		int Depth = 0;
		while (Offset < Text.size())
		{
			const char Character = Text[Offset++];
			if (static_cast<unsigned char>(Character) < 0x20)
			{
				Repaired += Character == '\0' ? ' ' : Character;
				continue;
			}
			Repaired += Character;
			if (Character == '"' && !RepairString())
			{
				return false;
			}
			Depth += Character == '{' || Character == '[' ? 1 : 0;
			Depth -= Character == '}' || Character == ']' ? 1 : 0;
			if (Depth <= 0)
			{
				OutEnd = Offset;
				return true;
			}
		}
		return false;
	}

private:
	/** From after the opening quote to after the closing one. */
	bool RepairString()
	{
		while (Offset < Text.size())
		{
			const char Character = Text[Offset];
			if (Character == '\\')
			{
				RepairEscape();
				continue;
			}
			++Offset;
			if (static_cast<unsigned char>(Character) < 0x20)
			{
				EscapeControl(Character);
				continue;
			}
			Repaired += Character;
			if (Character == '"')
			{
				return true;
			}
		}
		return false;
	}

	void EscapeControl(char InCharacter)
	{
		switch (InCharacter)
		{
		case '\n':
			Repaired += "\\n";
			break;
		case '\r':
			Repaired += "\\r";
			break;
		case '\t':
			Repaired += "\\t";
			break;
		default:
			break;
		}
	}

	void RepairEscape()
	{
		constexpr std::size_t UnitSize = 6;
		const std::string_view Rest = Text.substr(Offset);
		if (Rest.size() < 2 || std::string_view("\"\\/bfnrt").find(Rest[1]) != std::string_view::npos)
		{
			Repaired += Rest.substr(0, 2);
			Offset += std::min<std::size_t>(Rest.size(), 2);
			return;
		}
		const int Unit = ReadEscapedUnit(Rest);
		if (Unit < 0)
		{
			// A backslash that nobody escaped.
			Repaired += "\\\\";
			++Offset;
			return;
		}
		const bool bPair = U16_IS_LEAD(Unit) && U16_IS_TRAIL(ReadEscapedUnit(Rest.substr(UnitSize)));
		const bool bLone = !bPair && U16_IS_SURROGATE(Unit);
		const std::size_t Size = bPair ? 2 * UnitSize : UnitSize;
		Repaired += bLone ? "\\ufffd" : Rest.substr(0, Size);
		Offset += Size;
	}

	std::string_view Text;
	std::string& Repaired;
	std::size_t Offset = 0;
};

} // namespace

bool RepairJsonStrings(std::string_view InText, std::string& OutRepaired, std::size_t& OutEnd)
{
	return FStringRepairer(InText, OutRepaired).Repair(OutEnd);
}

} // namespace Flitmark
