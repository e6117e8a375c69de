#include "Formats/FieldValues.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>

namespace Flitmark
{

namespace
{

constexpr uint32 Opaque = 0xFF;

std::string_view Trim(std::string_view InText)
{
	constexpr std::string_view Blanks = " \t\r\n";
	const std::size_t Begin = std::min(InText.find_first_not_of(Blanks), InText.size());
	InText.remove_prefix(Begin);
	InText = InText.substr(0, InText.find_last_not_of(Blanks) + 1);
	return InText.starts_with('+') ? InText.substr(1) : InText;
}

uint32 WithoutOpacity(uint32 InRgb)
{
	return (InRgb & 0xFFFFFF) << 8 | Opaque;
}

std::optional<uint32> ParseHexColor(std::string_view InDigits)
{
	uint32 Value = 0;
	const char* const End = InDigits.data() + InDigits.size();
	const auto [Stop, Error] = std::from_chars(InDigits.data(), End, Value, 16);
	if (Error != std::errc() || Stop != End)
	{
		return std::nullopt;
	}
	switch (InDigits.size())
	{
	case 3:
		return WithoutOpacity((Value >> 8 & 15) * 0x110000 | (Value >> 4 & 15) * 0x1100 | (Value & 15) * 0x11);
	case 6:
		return WithoutOpacity(Value);
	default:
		return std::nullopt;
	}
}

/** Whether the whole text is a number. */
template <typename NumberType>
bool Read(std::string_view InText, NumberType& OutNumber)
{
	const char* const End = InText.data() + InText.size();
	const auto [Stop, Error] = std::from_chars(InText.data(), End, OutNumber);
	return Error == std::errc() && Stop == End;
}

} // namespace

std::optional<double> ParseNumber(std::string_view InText)
{
	double Number = 0.0;
	if ((!Read(InText, Number) && !Read(Trim(InText), Number)) || !std::isfinite(Number))
	{
		return std::nullopt;
	}
	return Number;
}

std::optional<int64> ParseInteger(std::string_view InText)
{
	int64 Integer = 0;
	if (Read(InText, Integer) || Read(Trim(InText), Integer))
	{
		return Integer;
	}
	const std::optional<double> Number = ParseNumber(Trim(InText));
	if (!Number)
	{
		return std::nullopt;
	}
	constexpr double Limit = 9223372036854775808.0;
	if (std::abs(*Number) >= Limit)
	{
		return *Number > 0 ? std::numeric_limits<int64>::max() : std::numeric_limits<int64>::min();
	}
	return static_cast<int64>(*Number);
}

std::optional<int64> ParseTicks(std::string_view InText, ETimeUnit InUnit)
{
	const auto TicksPerUnit = static_cast<double>(InUnit);
	constexpr double Limit = 10'000.0 * 366 * 86'400 * 1e7;
	const std::optional<double> Number = ParseNumber(InText);
	if (!Number || std::abs(*Number * TicksPerUnit) > Limit)
	{
		return std::nullopt;
	}
	return std::llround(*Number * TicksPerUnit);
}

std::optional<uint32> ParseColor(std::string_view InText)
{
	const std::string_view Text = Trim(InText);
	if (Text.starts_with('#'))
	{
		return ParseHexColor(Text.substr(1));
	}
	const std::optional<int64> Value = ParseInteger(Text);
	if (!Value)
	{
		return std::nullopt;
	}
	return WithoutOpacity(static_cast<uint32>(*Value & 0xFFFFFF));
}

int64 ParseUnixDate(std::string_view InText)
{
	// In seconds this is the year 5138, in milliseconds 1973.
	constexpr int64 FirstInMilliseconds = 100'000'000'000;
	const int64 Date = ParseInteger(InText).value_or(0);
	return Date >= FirstInMilliseconds ? Date / 1000 : Date;
}

int64 ParseDate(std::string_view InText)
{
	const char* At = InText.data();
	const char* const End = At + InText.size();
	constexpr std::array<int, 6> Largest = {9999, 12, 31, 23, 59, 60};
	std::array<int, 6> Parts{};
	for (std::size_t Part = 0; Part < Parts.size(); ++Part)
	{
		const auto [Stop, Error] = std::from_chars(At, End, Parts[Part]);
		if (Error != std::errc() || Parts[Part] < 0 || Parts[Part] > Largest[Part])
		{
			// The time of day may be missing.
			if (Part < 3)
			{
				return 0;
			}
			Parts[Part] = 0;
			break;
		}
		const bool bSeparated = Stop != End && Part + 1 < Parts.size();
		At = Stop + (bSeparated ? 1 : 0);
	}
	using namespace std::chrono;
	const year_month_day Day(year(Parts[0]), month(static_cast<unsigned>(Parts[1])),
							 day(static_cast<unsigned>(Parts[2])));
	if (!Day.ok())
	{
		return 0;
	}
	int64 Offset = 0;
	At = std::find_if(At, End, [](char InCharacter) { return InCharacter == '+' || InCharacter == '-'; });
	if (End - At >= 3)
	{
		int Hours = 0;
		int Minutes = 0;
		const auto [Stop, Error] = std::from_chars(At + 1, At + 3, Hours);
		std::from_chars(Stop + (Stop != End && *Stop == ':' ? 1 : 0), End, Minutes);
		Offset = (Hours * 60 + Minutes % 60) * 60 * (*At == '-' ? -1 : 1);
	}
	const int64 Days = sys_days(Day).time_since_epoch().count();
	return Days * 86'400 + Parts[3] * 3'600 + Parts[4] * 60 + Parts[5] - Offset;
}

int64 ParseAnyDate(std::string_view InText)
{
	const int64 Date = ParseUnixDate(InText);
	return Date != 0 ? Date : ParseDate(InText);
}

uint32 HashUser(std::string_view InText)
{
	uint32 Hash = 2166136261U;
	for (const char Byte : InText)
	{
		Hash = (Hash ^ static_cast<unsigned char>(Byte)) * 16777619U;
	}
	return Hash;
}

int64 MakeUserId(std::string_view InText)
{
	int64 Number = 0;
	const char* const End = InText.data() + InText.size();
	const auto [Stop, Error] = std::from_chars(InText.data(), End, Number);
	if (InText.empty() || (Error == std::errc() && Stop == End))
	{
		return Number;
	}
	return HashUser(InText);
}

int32 ScaleSize(std::string_view InSize, double InNormal)
{
	constexpr double Largest = 1000.0;
	const double Size = ParseNumber(InSize).value_or(0.0);
	if (Size <= 0.0)
	{
		return FServiceComment::NormalPoints;
	}
	const double Points = Size * FServiceComment::NormalPoints / InNormal;
	return static_cast<int32>(std::lround(std::clamp(Points, 1.0, Largest)));
}

} // namespace Flitmark
