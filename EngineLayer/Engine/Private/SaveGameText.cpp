#include "SaveGameText.h"

#include "Containers/StringConv.h"
#include "UObject/Class.h"
#include "UObject/GeneratedCppIncludes.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <set>
#include <string>
#include <string_view>

using UECodeGen_Private::EPropertyGenKind;

namespace
{

constexpr std::string_view EndMark = "[End]";

std::string ToUtf8(const FString& Text)
{
	const FTCHARToUTF8 Converted(*Text, Text.Len());
	return std::string(Converted.Get(), static_cast<std::size_t>(Converted.Length()));
}

/** Whether the unit must be escaped because UTF-8 or a line can't hold it. */
bool NeedsEscape(std::u16string_view Text, std::size_t Place)
{
	const TCHAR Unit = Text[Place];
	if (StringConv::IsHighSurrogate(Unit))
	{
		return Place + 1 == Text.size() || !StringConv::IsLowSurrogate(Text[Place + 1]);
	}
	if (StringConv::IsLowSurrogate(Unit))
	{
		return Place == 0 || !StringConv::IsHighSurrogate(Text[Place - 1]);
	}
	return Unit < 0x20 || Unit == u'"' || Unit == u'\\';
}

/** In quotes, with units that need escaping as "\uXXXX". */
std::string Quote(const FString& Text)
{
	constexpr char16_t Digits[] = u"0123456789ABCDEF";
	const std::u16string_view Units = Text.GetStd();
	FString Quoted(TEXT("\""));
	for (std::size_t Place = 0; Place < Units.size(); ++Place)
	{
		const TCHAR Unit = Units[Place];
		if (!NeedsEscape(Units, Place))
		{
			Quoted += Unit;
			continue;
		}
		Quoted += TEXT("\\u");
		for (int32 Shift = 12; Shift >= 0; Shift -= 4)
		{
			Quoted += Digits[(Unit >> Shift) & 0xF];
		}
	}
	Quoted += u'"';
	return ToUtf8(Quoted);
}

template <class T>
std::optional<T> ParseNumber(std::string_view Text, int32 Base = 10)
{
	T Value{};
	std::from_chars_result Result{};
	if constexpr (std::is_floating_point_v<T>)
	{
		Result = std::from_chars(Text.data(), Text.data() + Text.size(), Value);
	}
	else
	{
		Result = std::from_chars(Text.data(), Text.data() + Text.size(), Value, Base);
	}
	return Result.ec == std::errc() && Result.ptr == Text.data() + Text.size() ? std::optional(Value) : std::nullopt;
}

/** The unit encoded by the escape at the start of Text. */
std::optional<TCHAR> ParseEscape(std::u16string_view Text)
{
	constexpr std::size_t Length = 6;
	if (Text.size() < Length || Text[1] != u'u')
	{
		return std::nullopt;
	}
	std::string Digits;
	for (const TCHAR Digit : Text.substr(2, 4))
	{
		Digits += Digit < 0x80 ? static_cast<char>(Digit) : '?';
	}
	const std::optional<uint16> Unit = ParseNumber<uint16>(Digits, 16);
	return Unit ? std::optional(static_cast<TCHAR>(*Unit)) : std::nullopt;
}

std::optional<FString> Unquote(std::string_view Text)
{
	const FUTF8ToTCHAR Converted(Text.data(), static_cast<int32>(Text.size()));
	std::u16string_view Rest(Converted.Get(), static_cast<std::size_t>(Converted.Length()));
	if (Rest.size() < 2 || Rest.front() != u'"' || Rest.back() != u'"')
	{
		return std::nullopt;
	}
	Rest = Rest.substr(1, Rest.size() - 2);
	FString Result;
	while (!Rest.empty())
	{
		const bool bEscape = Rest.front() == u'\\';
		const std::optional<TCHAR> Unit = bEscape ? ParseEscape(Rest) : Rest.front();
		if (!Unit || (!bEscape && *Unit == u'"'))
		{
			return std::nullopt;
		}
		Result += *Unit;
		Rest.remove_prefix(bEscape ? 6 : 1);
	}
	return Result;
}

template <class T>
std::string WriteNumber(const FProperty& Property, const UObject& Object)
{
	char Digits[64];
	const auto End = std::to_chars(std::begin(Digits), std::end(Digits), *Property.ContainerPtrToValuePtr<T>(&Object));
	return std::string(std::begin(Digits), End.ptr);
}

std::optional<std::string> WriteValue(const FProperty& Property, const UObject& Object)
{
	switch (Property.GetKind())
	{
	case EPropertyGenKind::Int32:
		return WriteNumber<int32>(Property, Object);
	case EPropertyGenKind::Int64:
		return WriteNumber<int64>(Property, Object);
	case EPropertyGenKind::Float:
		return WriteNumber<float>(Property, Object);
	case EPropertyGenKind::Double:
		return WriteNumber<double>(Property, Object);
	case EPropertyGenKind::Bool:
		return *Property.ContainerPtrToValuePtr<bool>(&Object) ? "true" : "false";
	case EPropertyGenKind::String:
		return Quote(*Property.ContainerPtrToValuePtr<FString>(&Object));
	default:
		return std::nullopt;
	}
}

template <class T>
bool Assign(const FProperty& Property, UObject& Object, std::optional<T> Value)
{
	if (Value)
	{
		*Property.ContainerPtrToValuePtr<T>(&Object) = std::move(*Value);
	}
	return Value.has_value();
}

bool ReadValue(const FProperty& Property, UObject& Object, std::string_view Text)
{
	switch (Property.GetKind())
	{
	case EPropertyGenKind::Int32:
		return Assign(Property, Object, ParseNumber<int32>(Text));
	case EPropertyGenKind::Int64:
		return Assign(Property, Object, ParseNumber<int64>(Text));
	case EPropertyGenKind::Float:
		return Assign(Property, Object, ParseNumber<float>(Text));
	case EPropertyGenKind::Double:
		return Assign(Property, Object, ParseNumber<double>(Text));
	case EPropertyGenKind::Bool:
		return Assign(Property, Object,
					  Text == "true" || Text == "false" ? std::optional(Text == "true") : std::nullopt);
	case EPropertyGenKind::String:
		return Assign(Property, Object, Unquote(Text));
	default:
		return false;
	}
}

/** Removes and returns the next line, without its line ending. */
std::string_view TakeLine(std::string_view& Rest)
{
	const std::size_t End = std::min(Rest.find('\n'), Rest.size());
	std::string_view Line = Rest.substr(0, End);
	Rest.remove_prefix(std::min(End + 1, Rest.size()));
	if (Line.ends_with('\r'))
	{
		Line.remove_suffix(1);
	}
	return Line;
}

bool WriteProperties(const UClass* Class, const UObject& Object, std::string& Text)
{
	if (Class->GetSuperClass() != nullptr && !WriteProperties(Class->GetSuperClass(), Object, Text))
	{
		return false;
	}
	return std::ranges::all_of(Class->GetOwnProperties(),
							   [&](const std::unique_ptr<FProperty>& Property)
							   {
								   const std::optional<std::string> Value = WriteValue(*Property, Object);
								   Text += ToUtf8(Property->GetName()) + "=" + Value.value_or("") + "\n";
								   return Value.has_value();
							   });
}

/** A line "Name=Value"; each name appears once. */
bool ReadProperty(std::string_view Line, USaveGame& SaveGame, std::set<std::string_view>& Seen)
{
	const std::size_t Equals = Line.find('=');
	if (Equals == std::string_view::npos || !Seen.insert(Line.substr(0, Equals)).second)
	{
		return false;
	}
	const FUTF8ToTCHAR Name(Line.data(), static_cast<int32>(Equals));
	const FProperty* Property = SaveGame.GetClass()->FindPropertyByName(
		FName(FStringView(Name.Get(), static_cast<std::size_t>(Name.Length()))));
	return Property == nullptr || ReadValue(*Property, SaveGame, Line.substr(Equals + 1));
}

} // namespace

bool SaveGameText::Write(const USaveGame& SaveGame, TArray<uint8>& OutData)
{
	std::string Text = "[" + SaveGame.GetClass()->GetCppName() + "]\n";
	if (!WriteProperties(SaveGame.GetClass(), SaveGame, Text))
	{
		return false;
	}
	Text.append(EndMark).append("\n");
	OutData.SetNum(static_cast<int32>(Text.size()));
	std::ranges::copy(Text, OutData.begin());
	return true;
}

USaveGame* SaveGameText::Read(const TArray<uint8>& Data)
{
	std::string_view Rest(reinterpret_cast<const char*>(Data.GetData()), static_cast<std::size_t>(Data.Num()));
	const std::string_view Head = TakeLine(Rest);
	if (!Head.starts_with('[') || !Head.ends_with(']'))
	{
		return nullptr;
	}
	UClass* Class = FindClassByName(Head.substr(1, Head.size() - 2));
	if (Class == nullptr || !Class->IsChildOf(USaveGame::StaticClass()))
	{
		return nullptr;
	}
	USaveGame* SaveGame = NewObject<USaveGame>(GetTransientPackage(), Class);
	std::set<std::string_view> Seen;
	while (SaveGame != nullptr && !Rest.empty())
	{
		const std::string_view Line = TakeLine(Rest);
		if (Line == EndMark)
		{
			return Rest.empty() ? SaveGame : nullptr;
		}
		if (!ReadProperty(Line, *SaveGame, Seen))
		{
			return nullptr;
		}
	}
	return nullptr;
}
