#pragma once

#include "Serialization/JsonSerializer.h"

#include <string>

/** A document's value converted to a standard string; empty if it was refused. */
inline TSharedPtr<FJsonValue> ReadJson(FString Text)
{
	TSharedPtr<FJsonValue> Value;
	FJsonSerializer::Deserialize(TJsonReaderFactory<TCHAR>::Create(std::move(Text)), Value);
	return Value;
}

/** The value under "v" of {"v":<Value>}. */
inline TSharedPtr<FJsonValue> ReadMember(const std::u16string& Value)
{
	const TSharedPtr<FJsonValue> Root = ReadJson(FString(u"{\"v\":" + Value + u"}"));
	return Root.IsValid() ? Root->AsObject()->TryGetField(TEXT("v")) : Root;
}

/** ASCII for messages. */
inline std::string Narrow(const std::u16string& Text)
{
	std::string Narrowed;
	for (const TCHAR Character : Text)
	{
		Narrowed += Character >= 0x20 && Character < 0x7F ? static_cast<char>(Character) : '?';
	}
	return Narrowed;
}
