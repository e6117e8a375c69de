#include "Formats/XmlTag.h"

#include "Formats/Utf8.h"

#include <algorithm>
#include <charconv>

namespace Flitmark
{

namespace
{

bool IsBlank(char InCharacter)
{
	return InCharacter == ' ' || InCharacter == '\t' || InCharacter == '\r' || InCharacter == '\n';
}

std::size_t SkipBlanks(std::string_view InText, std::size_t InOffset)
{
	while (InOffset < InText.size() && IsBlank(InText[InOffset]))
	{
		++InOffset;
	}
	return InOffset;
}

/** Where a name or a bare value ends. */
std::size_t FindEnd(std::string_view InText, std::size_t InOffset, char InOtherEnd)
{
	while (InOffset < InText.size() && !IsBlank(InText[InOffset]) && InText[InOffset] != InOtherEnd)
	{
		++InOffset;
	}
	return InOffset;
}

/** `#65` or `#x41`, without the ampersand and the semicolon. */
bool AppendNumbered(std::string& OutText, std::string_view InName)
{
	const bool bHex = InName.size() > 1 && (InName[1] == 'x' || InName[1] == 'X');
	const char* const Begin = InName.data() + (bHex ? 2 : 1);
	const char* const End = InName.data() + InName.size();
	uint32 Character = 0;
	const auto [Stop, Error] = std::from_chars(Begin, End, Character, bHex ? 16 : 10);
	if (Begin == End || Stop != End || Error == std::errc::invalid_argument)
	{
		return false;
	}
	// What no text may hold is dropped with the other control characters later; NUL must not get that far.
	if (Character != 0)
	{
		AppendCharacter(OutText, Error == std::errc() ? Character : 0xFFFDU);
	}
	return true;
}

bool AppendEntity(std::string& OutText, std::string_view InName)
{
	struct FEntity
	{
		std::string_view Name;
		std::string_view Text;
	};
	constexpr FEntity Entities[] = {{"amp", "&"},	{"lt", "<"},   {"gt", ">"},
									{"quot", "\""}, {"apos", "'"}, {"nbsp", "\xC2\xA0"}};
	if (InName.starts_with('#'))
	{
		return AppendNumbered(OutText, InName);
	}
	for (const FEntity& Entity : Entities)
	{
		if (Entity.Name == InName)
		{
			OutText += Entity.Text;
			return true;
		}
	}
	return false;
}

void AppendWithEntities(std::string& OutText, std::string_view InText)
{
	constexpr std::size_t LongestName = 10;
	std::size_t Offset = 0;
	while (Offset < InText.size())
	{
		const std::size_t Ampersand = std::min(InText.find('&', Offset), InText.size());
		OutText.append(InText, Offset, Ampersand - Offset);
		if (Ampersand == InText.size())
		{
			return;
		}
		const std::string_view After = InText.substr(Ampersand + 1, LongestName + 1);
		const std::size_t Length = After.find(';');
		Offset = Ampersand + 1;
		if (Length != std::string_view::npos && AppendEntity(OutText, After.substr(0, Length)))
		{
			Offset += Length + 1;
		}
		else
		{
			OutText += '&';
		}
	}
}

} // namespace

bool FXmlAttributes::Next(std::string_view& OutName, std::string_view& OutValue)
{
	Offset = SkipBlanks(Tag, Offset);
	while (Offset < Tag.size())
	{
		const std::size_t NameEnd = FindEnd(Tag, Offset, '=');
		OutName = Tag.substr(Offset, NameEnd - Offset);
		Offset = SkipBlanks(Tag, NameEnd);
		if (Offset < Tag.size() && Tag[Offset] == '=')
		{
			Offset = SkipBlanks(Tag, Offset + 1);
			OutValue = TakeValue();
			return true;
		}
	}
	return false;
}

std::string_view FXmlAttributes::TakeValue()
{
	const std::size_t Begin = Offset;
	const char Quote = Begin < Tag.size() ? Tag[Begin] : '\0';
	if (Quote == '"' || Quote == '\'')
	{
		const std::size_t End = std::min(Tag.find(Quote, Begin + 1), Tag.size());
		Offset = std::min(End + 1, Tag.size());
		return Tag.substr(Begin + 1, End - Begin - 1);
	}
	Offset = FindEnd(Tag, Begin, ' ');
	return Tag.substr(Begin, Offset - Begin);
}

std::string_view FindXmlAttribute(std::string_view InTag, std::string_view InName)
{
	FXmlAttributes Attributes(InTag);
	std::string_view Name;
	std::string_view Value;
	while (Attributes.Next(Name, Value))
	{
		if (Name == InName)
		{
			return Value;
		}
	}
	return {};
}

std::string_view ResolveEntities(std::string_view InValue, std::string& OutStorage)
{
	if (InValue.find('&') == std::string_view::npos)
	{
		return InValue;
	}
	OutStorage.clear();
	AppendXmlText(OutStorage, InValue);
	return OutStorage;
}

void AppendXmlText(std::string& OutText, std::string_view InContent)
{
	constexpr std::string_view Opening = "<![CDATA[";
	constexpr std::string_view Closing = "]]>";
	while (!InContent.empty())
	{
		const std::size_t Section = InContent.find(Opening);
		const std::size_t End = Section == std::string_view::npos ? Section : InContent.find(Closing, Section);
		if (End == std::string_view::npos)
		{
			AppendWithEntities(OutText, InContent);
			return;
		}
		AppendWithEntities(OutText, InContent.substr(0, Section));
		const std::size_t Begin = Section + Opening.size();
		OutText += InContent.substr(Begin, End - Begin);
		InContent.remove_prefix(End + Closing.size());
	}
}

} // namespace Flitmark
