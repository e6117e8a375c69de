#include "Values/TimeText.h"

#include <charconv>
#include <cstdio>

namespace Flitmark
{

namespace
{

/** Some 30 years, which neither a video nor a stream reaches; its ticks fit an int64. */
constexpr double MaxSeconds = 1e9;

} // namespace

std::optional<double> ParseDecimal(std::string_view InText)
{
	if (InText.empty() || InText.find_first_not_of("0123456789.") != std::string_view::npos)
	{
		return std::nullopt;
	}
	double Number = 0.0;
	const auto [End, Error] = std::from_chars(InText.data(), InText.data() + InText.size(), Number);
	return Error == std::errc() && End == InText.data() + InText.size() ? std::optional(Number) : std::nullopt;
}

std::optional<double> ParseTime(std::string_view InText)
{
	constexpr int MostParts = 3;
	double Seconds = 0.0;
	for (int Parts = 1; Parts <= MostParts; ++Parts)
	{
		const std::size_t Colon = InText.find(':');
		const bool bLast = Colon == std::string_view::npos;
		const std::string_view Part = InText.substr(0, Colon);
		const std::optional<double> Number = ParseDecimal(Part);
		// After a colon minutes and seconds stay below 60; only the seconds may have a fraction.
		if (!Number || (Parts > 1 && *Number >= 60.0) || (!bLast && Part.find('.') != std::string_view::npos))
		{
			return std::nullopt;
		}
		Seconds = Seconds * 60.0 + *Number;
		if (bLast)
		{
			return Seconds < MaxSeconds ? std::optional(Seconds) : std::nullopt;
		}
		InText.remove_prefix(Colon + 1);
	}
	return std::nullopt;
}

std::string FormatTime(double InSeconds)
{
	const bool bTime = InSeconds > 0.0 && InSeconds < MaxSeconds;
	const auto Whole = bTime ? static_cast<long long>(InSeconds) : 0;
	char Text[64];
	if (Whole < 3600)
	{
		std::snprintf(Text, sizeof(Text), "%lld:%02lld", Whole / 60, Whole % 60);
	}
	else
	{
		std::snprintf(Text, sizeof(Text), "%lld:%02lld:%02lld", Whole / 3600, Whole / 60 % 60, Whole % 60);
	}
	return Text;
}

std::string FormatTime(FTimespan InTime)
{
	return FormatTime(InTime.GetTotalSeconds());
}

} // namespace Flitmark
