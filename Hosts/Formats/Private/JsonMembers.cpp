#include "JsonMembers.h"

#include "Files/FileText.h"
#include "Formats/FieldValues.h"
#include "JsonScan.h"
#include "Serialization/JsonSerializer.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

/** The value that begins at a place. */
std::string_view GetValue(std::string_view InText, std::size_t InPlace)
{
	const char First = InText[InPlace];
	const std::size_t End = First == '"'				   ? FindStringEnd(InText, InPlace)
							: First == '{' || First == '[' ? FindBalancedEnd(InText, InPlace)
														   : InText.find_first_of(",]} \t\r\n", InPlace);
	return InText.substr(InPlace, End == std::string_view::npos ? End : End - InPlace);
}

bool IsSameKey(std::string_view InKey, std::string_view InOther)
{
	const auto Lower = [](char InLetter)
	{
		return InLetter >= 'A' && InLetter <= 'Z' ? static_cast<char>(InLetter - 'A' + 'a') : InLetter;
	};
	return std::ranges::equal(InKey, InOther, {}, Lower, Lower);
}

bool IsQuotedKey(std::string_view InQuoted, std::string_view InKey)
{
	return InQuoted.find('\\') == std::string_view::npos ? IsSameKey(InQuoted.substr(1, InQuoted.size() - 2), InKey)
														 : IsSameKey(UnquoteJson(InQuoted), InKey);
}

} // namespace

std::string UnquoteJson(std::string_view InQuoted)
{
	if (InQuoted.find('\\') == std::string_view::npos)
	{
		return std::string(InQuoted.substr(1, InQuoted.size() - 2));
	}
	TArray<TSharedPtr<FJsonValue>> Values;
	const FString Text = FromUtf8("[" + std::string(InQuoted) + "]");
	FJsonSerializer::Deserialize(TJsonReaderFactory<TCHAR>::Create(Text), Values);
	return Values.Num() == 1 ? ToUtf8(Values[0]->AsString()) : std::string();
}

int64 ReadJsonId(std::string_view InObject, std::string_view InKey)
{
	std::string_view Value = FindJsonMember(InObject, InKey).value_or(std::string_view());
	if (Value.starts_with('"'))
	{
		Value = Value.substr(1, Value.size() - 2);
	}
	return ParseInteger(Value == "true" ? "1" : Value).value_or(0);
}

std::optional<std::string_view> FindJsonMember(std::string_view InObject, std::string_view InKey)
{
	std::optional<std::string_view> Found;
	for (std::size_t Place = InObject.find('{'); Place < InObject.size() && InObject[Place] != '}';)
	{
		const std::size_t Key = SkipJsonBlanks(InObject, Place + 1);
		if (Key == std::string_view::npos || InObject[Key] != '"')
		{
			break;
		}
		const std::string_view Quoted = GetValue(InObject, Key);
		const std::size_t Colon = SkipJsonBlanks(InObject, Key + Quoted.size());
		const std::size_t Begin = Colon == std::string_view::npos ? Colon : SkipJsonBlanks(InObject, Colon + 1);
		if (Begin == std::string_view::npos)
		{
			break;
		}
		const std::string_view Value = GetValue(InObject, Begin);
		if (IsQuotedKey(Quoted, InKey))
		{
			Found = Value;
		}
		Place = SkipJsonBlanks(InObject, Begin + Value.size());
	}
	return Found;
}

std::string_view FJsonElements::Next()
{
	const std::size_t Begin = Place < List.size() && List[Place] != ']' ? SkipJsonBlanks(List, Place + 1) : List.size();
	if (Begin >= List.size() || List[Begin] == ']')
	{
		Place = List.size();
		return {};
	}
	const std::string_view Element = GetValue(List, Begin);
	Place = SkipJsonBlanks(List, Begin + Element.size());
	return Element;
}

} // namespace Flitmark
