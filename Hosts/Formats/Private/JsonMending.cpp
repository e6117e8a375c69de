#include "JsonValueReader.h"

#include <algorithm>
#include <charconv>

namespace Flitmark
{

namespace
{

/** More is not looked at: most of what is damaged has its end near. */
constexpr std::size_t MaxSize = 65536;

/** The code unit of `\uXXXX` at a text's start; negative where there is none. */
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

bool IsHighSurrogate(int InUnit)
{
	return InUnit >= 0xD800 && InUnit <= 0xDBFF;
}

bool IsLowSurrogate(int InUnit)
{
	return InUnit >= 0xDC00 && InUnit <= 0xDFFF;
}

class FStringMender
{
public:
	FStringMender(std::string_view InText, std::string& OutMended)
		: Text(InText.substr(0, MaxSize))
		, Mended(OutMended)
	{
	}

	bool Mend(std::size_t& OutEnd)
	{
		Mended.clear();
		int Depth = 0;
		while (Place < Text.size())
		{
			const char Character = Text[Place++];
			if (static_cast<unsigned char>(Character) < 0x20)
			{
				Mended += Character == '\0' ? ' ' : Character;
				continue;
			}
			Mended += Character;
			if (Character == '"' && !MendString())
			{
				return false;
			}
			Depth += Character == '{' || Character == '[' ? 1 : 0;
			Depth -= Character == '}' || Character == ']' ? 1 : 0;
			if (Depth <= 0)
			{
				OutEnd = Place;
				return true;
			}
		}
		return false;
	}

private:
	/** From behind the opening quote to behind the closing one. */
	bool MendString()
	{
		while (Place < Text.size())
		{
			const char Character = Text[Place];
			if (Character == '\\')
			{
				MendEscape();
				continue;
			}
			++Place;
			if (static_cast<unsigned char>(Character) < 0x20)
			{
				EscapeControl(Character);
				continue;
			}
			Mended += Character;
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
			Mended += "\\n";
			break;
		case '\r':
			Mended += "\\r";
			break;
		case '\t':
			Mended += "\\t";
			break;
		default:
			break;
		}
	}

	void MendEscape()
	{
		constexpr std::size_t UnitSize = 6;
		const std::string_view Rest = Text.substr(Place);
		if (Rest.size() < 2 || std::string_view("\"\\/bfnrt").find(Rest[1]) != std::string_view::npos)
		{
			Mended += Rest.substr(0, 2);
			Place += std::min<std::size_t>(Rest.size(), 2);
			return;
		}
		const int Unit = ReadEscapedUnit(Rest);
		if (Unit < 0)
		{
			// A backslash that nobody escaped.
			Mended += "\\\\";
			++Place;
			return;
		}
		const bool bPair = IsHighSurrogate(Unit) && IsLowSurrogate(ReadEscapedUnit(Rest.substr(UnitSize)));
		const bool bLone = !bPair && (IsHighSurrogate(Unit) || IsLowSurrogate(Unit));
		const std::size_t Size = bPair ? 2 * UnitSize : UnitSize;
		Mended += bLone ? "\\ufffd" : Rest.substr(0, Size);
		Place += Size;
	}

	std::string_view Text;
	std::string& Mended;
	std::size_t Place = 0;
};

} // namespace

bool MendJsonStrings(std::string_view InText, std::string& OutMended, std::size_t& OutEnd)
{
	return FStringMender(InText, OutMended).Mend(OutEnd);
}

} // namespace Flitmark
