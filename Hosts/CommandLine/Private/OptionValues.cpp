#include "OptionValues.h"

#include "TraceScript.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace Flitmark
{

namespace
{

/** A plain decimal number of 0 or more that makes up the whole text. */
std::optional<double> ParseNumber(std::string_view InText)
{
	if (InText.empty() || InText.find_first_not_of("0123456789.") != std::string_view::npos)
	{
		return std::nullopt;
	}
	double Number = 0.0;
	const auto [End, Error] = std::from_chars(InText.data(), InText.data() + InText.size(), Number);
	return Error == std::errc() && End == InText.data() + InText.size() ? std::optional(Number) : std::nullopt;
}

} // namespace

std::optional<double> ParseTime(std::string_view InText)
{
	constexpr int MostParts = 3;
	double Seconds = 0.0;
	for (int Parts = 1; Parts <= MostParts; ++Parts)
	{
		const std::size_t Colon = InText.find(':');
		const bool bLast = Colon == std::string_view::npos;
		const std::string_view Part = InText.substr(0, Colon);
		const std::optional<double> Number = ParseNumber(Part);
		// Behind a colon minutes and seconds stay below 60; a fraction is the seconds' alone.
		if (!Number || (Parts > 1 && *Number >= 60.0) || (!bLast && Part.find('.') != std::string_view::npos))
		{
			return std::nullopt;
		}
		Seconds = Seconds * 60.0 + *Number;
		if (bLast)
		{
			return Seconds;
		}
		InText.remove_prefix(Colon + 1);
	}
	return std::nullopt;
}

std::string FormatTime(double InSeconds)
{
	const auto Whole = static_cast<long long>(std::floor(InSeconds));
	char Text[64];
	if (Whole < 3600)
	{
		std::snprintf(Text, sizeof(Text), "%02lld:%02lld", Whole / 60, Whole % 60);
	}
	else
	{
		std::snprintf(Text, sizeof(Text), "%lld:%02lld:%02lld", Whole / 3600, Whole / 60 % 60, Whole % 60);
	}
	return Text;
}

std::optional<FVector2f> ParseCanvasSize(std::string_view InText)
{
	const std::size_t Cross = InText.find('x');
	if (Cross == std::string_view::npos)
	{
		return std::nullopt;
	}
	const std::optional<double> Width = ParseNumber(InText.substr(0, Cross));
	const std::optional<double> Height = ParseNumber(InText.substr(Cross + 1));
	if (!Width || !Height || !IsCanvasSize(*Width, *Height))
	{
		return std::nullopt;
	}
	return FVector2f(static_cast<float>(*Width), static_cast<float>(*Height));
}

std::optional<int64> ParseOffset(std::string_view InText)
{
	constexpr double TicksPerSecond = 1e7;
	constexpr double SecondsPerDay = 86'400.0;
	const bool bBack = InText.starts_with('-');
	const std::optional<double> Seconds = ParseTime(InText.substr(bBack ? 1 : 0));
	if (!Seconds || *Seconds > SecondsPerDay)
	{
		return std::nullopt;
	}
	const int64 Ticks = std::llround(*Seconds * TicksPerSecond);
	return bBack ? -Ticks : Ticks;
}

} // namespace Flitmark
