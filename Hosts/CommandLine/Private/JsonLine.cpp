#include "JsonLine.h"

#include "Containers/StringConv.h"

#include <array>
#include <charconv>
#include <cmath>

namespace Flitmark
{

namespace
{

void AppendEscape(std::string& Text, char16_t Unit)
{
	constexpr std::string_view Digits = "0123456789abcdef";
	Text += "\\u";
	for (int Shift = 12; Shift >= 0; Shift -= 4)
	{
		Text += Digits[static_cast<std::size_t>(Unit >> Shift & 0xF)];
	}
}

/** Appends one code unit below U+0080. */
void AppendAscii(std::string& Text, char16_t Unit)
{
	switch (Unit)
	{
	case u'"':
		Text += "\\\"";
		break;
	case u'\\':
		Text += "\\\\";
		break;
	case u'\b':
		Text += "\\b";
		break;
	case u'\f':
		Text += "\\f";
		break;
	case u'\n':
		Text += "\\n";
		break;
	case u'\r':
		Text += "\\r";
		break;
	case u'\t':
		Text += "\\t";
		break;
	default:
		if (Unit < 0x20)
		{
			AppendEscape(Text, Unit);
		}
		else
		{
			Text += static_cast<char>(Unit);
		}
	}
}

void AppendUtf8(std::string& Text, char32_t CodePoint)
{
	const auto Byte = [&Text](char32_t Value)
	{
		Text += static_cast<char>(static_cast<unsigned char>(Value));
	};
	if (CodePoint < 0x800)
	{
		Byte(0xC0 | CodePoint >> 6);
	}
	else if (CodePoint < 0x10000)
	{
		Byte(0xE0 | CodePoint >> 12);
		Byte(0x80 | (CodePoint >> 6 & 0x3F));
	}
	else
	{
		Byte(0xF0 | CodePoint >> 18);
		Byte(0x80 | (CodePoint >> 12 & 0x3F));
		Byte(0x80 | (CodePoint >> 6 & 0x3F));
	}
	Byte(0x80 | (CodePoint & 0x3F));
}

void AppendString(std::string& Text, const std::u16string& Units)
{
	for (std::size_t Index = 0; Index < Units.size(); ++Index)
	{
		const char16_t Unit = Units[Index];
		if (Unit < 0x80)
		{
			AppendAscii(Text, Unit);
		}
		else if (StringConv::IsHighSurrogate(Unit) && Index + 1 < Units.size() &&
				 StringConv::IsLowSurrogate(Units[Index + 1]))
		{
			++Index;
			AppendUtf8(Text, 0x10000u + (static_cast<char32_t>(Unit - 0xD800) << 10) +
								 static_cast<char32_t>(Units[Index] - 0xDC00));
		}
		else if (StringConv::IsHighSurrogate(Unit) || StringConv::IsLowSurrogate(Unit))
		{
			AppendEscape(Text, Unit);
		}
		else
		{
			AppendUtf8(Text, Unit);
		}
	}
}

} // namespace

void FJsonLine::Begin(std::string_view Key)
{
	if (bNeedsComma)
	{
		Text += ',';
	}
	if (!Key.empty())
	{
		Text += '"';
		Text += Key;
		Text += "\":";
	}
	bNeedsComma = true;
}

void FJsonLine::Open(char Bracket, std::string_view Key)
{
	Begin(Key);
	Text += Bracket;
	bNeedsComma = false;
}

void FJsonLine::Close(char Bracket)
{
	Text += Bracket;
	bNeedsComma = true;
}

void FJsonLine::Add(std::string_view Key, int64 Value)
{
	Begin(Key);
	Text += std::to_string(Value);
}

template <class T>
void FJsonLine::AddFloating(std::string_view Key, T Value)
{
	if (!std::isfinite(Value))
	{
		Add(Key, std::string_view(std::isnan(Value) ? "nan" : Value < 0 ? "-inf" : "inf"));
		return;
	}
	Begin(Key);
	// Whole numbers are written as such; the largest double has 309 digits.
	std::array<char, 320> Digits{};
	const std::to_chars_result Result =
		Value == std::trunc(Value)
			? std::to_chars(Digits.data(), Digits.data() + Digits.size(), Value, std::chars_format::fixed)
			: std::to_chars(Digits.data(), Digits.data() + Digits.size(), Value);
	Text.append(Digits.data(), Result.ptr);
}

void FJsonLine::Add(std::string_view Key, float Value)
{
	AddFloating(Key, Value);
}

void FJsonLine::Add(std::string_view Key, double Value)
{
	AddFloating(Key, Value);
}

void FJsonLine::Add(std::string_view Key, bool bValue)
{
	Begin(Key);
	Text += bValue ? "true" : "false";
}

void FJsonLine::Add(std::string_view Key, const FString& Value)
{
	Begin(Key);
	Text += '"';
	AppendString(Text, Value.GetStd());
	Text += '"';
}

void FJsonLine::Add(std::string_view Key, std::string_view Value)
{
	Begin(Key);
	Text += '"';
	Text += Value;
	Text += '"';
}

void FJsonLine::Clear()
{
	Text.clear();
	bNeedsComma = false;
}

} // namespace Flitmark
