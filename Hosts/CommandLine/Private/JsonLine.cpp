#include "JsonLine.h"

#include "Containers/StringConv.h"

#include <array>
#include <charconv>
#include <cmath>

namespace Flitmark
{

namespace
{

void AppendEscape(std::string& InOutText, char16_t InUnit)
{
	constexpr std::string_view Digits = "0123456789abcdef";
	InOutText += "\\u";
	for (int Shift = 12; Shift >= 0; Shift -= 4)
	{
		InOutText += Digits[static_cast<std::size_t>(InUnit >> Shift & 0xF)];
	}
}

/** Appends one code unit below U+0080. */
void AppendAscii(std::string& InOutText, char16_t InUnit)
{
	switch (InUnit)
	{
	case u'"':
		InOutText += "\\\"";
		break;
	case u'\\':
		InOutText += "\\\\";
		break;
	case u'\b':
		InOutText += "\\b";
		break;
	case u'\f':
		InOutText += "\\f";
		break;
	case u'\n':
		InOutText += "\\n";
		break;
	case u'\r':
		InOutText += "\\r";
		break;
	case u'\t':
		InOutText += "\\t";
		break;
	default:
		if (InUnit < 0x20)
		{
			AppendEscape(InOutText, InUnit);
		}
		else
		{
			InOutText += static_cast<char>(InUnit);
		}
	}
}

void AppendUtf8(std::string& InOutText, char32_t InCodePoint)
{
	const auto Byte = [&InOutText](char32_t Value)
	{
		InOutText += static_cast<char>(static_cast<unsigned char>(Value));
	};
	if (InCodePoint < 0x800)
	{
		Byte(0xC0 | InCodePoint >> 6);
	}
	else if (InCodePoint < 0x10000)
	{
		Byte(0xE0 | InCodePoint >> 12);
		Byte(0x80 | (InCodePoint >> 6 & 0x3F));
	}
	else
	{
		Byte(0xF0 | InCodePoint >> 18);
		Byte(0x80 | (InCodePoint >> 12 & 0x3F));
		Byte(0x80 | (InCodePoint >> 6 & 0x3F));
	}
	Byte(0x80 | (InCodePoint & 0x3F));
}

void AppendString(std::string& InOutText, const std::u16string& InUnits)
{
	for (std::size_t Index = 0; Index < InUnits.size(); ++Index)
	{
		const char16_t Unit = InUnits[Index];
		if (Unit < 0x80)
		{
			AppendAscii(InOutText, Unit);
		}
		else if (StringConv::IsHighSurrogate(Unit) && Index + 1 < InUnits.size() &&
				 StringConv::IsLowSurrogate(InUnits[Index + 1]))
		{
			++Index;
			AppendUtf8(InOutText, 0x10000u + (static_cast<char32_t>(Unit - 0xD800) << 10) +
									  static_cast<char32_t>(InUnits[Index] - 0xDC00));
		}
		else if (StringConv::IsHighSurrogate(Unit) || StringConv::IsLowSurrogate(Unit))
		{
			AppendEscape(InOutText, Unit);
		}
		else
		{
			AppendUtf8(InOutText, Unit);
		}
	}
}

} // namespace

void FJsonLine::Begin(std::string_view InKey)
{
	if (bNeedsComma)
	{
		Text += ',';
	}
	if (!InKey.empty())
	{
		Text += '"';
		Text += InKey;
		Text += "\":";
	}
	bNeedsComma = true;
}

void FJsonLine::Open(char InBracket, std::string_view InKey)
{
	Begin(InKey);
	Text += InBracket;
	bNeedsComma = false;
}

void FJsonLine::Close(char InBracket)
{
	Text += InBracket;
	bNeedsComma = true;
}

void FJsonLine::Add(std::string_view InKey, int64 InValue)
{
	Begin(InKey);
	Text += std::to_string(InValue);
}

template <class T>
void FJsonLine::AddFloating(std::string_view InKey, T InValue)
{
	if (!std::isfinite(InValue))
	{
		Add(InKey, std::string_view(std::isnan(InValue) ? "nan" : InValue < 0 ? "-inf" : "inf"));
		return;
	}
	Begin(InKey);
	// Whole numbers are written as such; the largest double has 309 digits.
	std::array<char, 320> Digits{};
	const std::to_chars_result Result =
		InValue == std::trunc(InValue)
			? std::to_chars(Digits.data(), Digits.data() + Digits.size(), InValue, std::chars_format::fixed)
			: std::to_chars(Digits.data(), Digits.data() + Digits.size(), InValue);
	Text.append(Digits.data(), Result.ptr);
}

void FJsonLine::Add(std::string_view InKey, float InValue)
{
	AddFloating(InKey, InValue);
}

void FJsonLine::Add(std::string_view InKey, double InValue)
{
	AddFloating(InKey, InValue);
}

void FJsonLine::Add(std::string_view InKey, bool bInValue)
{
	Begin(InKey);
	Text += bInValue ? "true" : "false";
}

void FJsonLine::Add(std::string_view InKey, const FString& InValue)
{
	Begin(InKey);
	Text += '"';
	AppendString(Text, InValue.GetStd());
	Text += '"';
}

void FJsonLine::Add(std::string_view InKey, std::string_view InValue)
{
	Begin(InKey);
	Text += '"';
	Text += InValue;
	Text += '"';
}

void FJsonLine::Clear()
{
	Text.clear();
	bNeedsComma = false;
}

} // namespace Flitmark
