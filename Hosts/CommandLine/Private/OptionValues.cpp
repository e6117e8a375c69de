#include "OptionValues.h"

#include "TraceScript.h"
#include "Values/TimeText.h"

#include <charconv>
#include <cmath>

namespace Flitmark
{

namespace
{

/** A whole number from 1 to InMost that is all of the text. */
std::optional<int32> ParseWhole(std::string_view InText, int32 InMost)
{
	int32 Number = 0;
	const char* const End = InText.data() + InText.size();
	const auto [Rest, Error] = std::from_chars(InText.data(), End, Number);
	return Error == std::errc() && Rest == End && Number >= 1 && Number <= InMost ? std::optional(Number)
																				  : std::nullopt;
}

} // namespace

std::optional<FVector2f> ParseCanvasSize(std::string_view InText)
{
	const std::size_t Cross = InText.find('x');
	if (Cross == std::string_view::npos)
	{
		return std::nullopt;
	}
	const std::optional<double> Width = ParseDecimal(InText.substr(0, Cross));
	const std::optional<double> Height = ParseDecimal(InText.substr(Cross + 1));
	if (!Width || !Height || !IsCanvasSize(*Width, *Height))
	{
		return std::nullopt;
	}
	return FVector2f(static_cast<float>(*Width), static_cast<float>(*Height));
}

std::optional<std::pair<int32, int32>> ParsePictureSize(std::string_view InText)
{
	// What every encoder for transparency takes.
	constexpr int32 MostPixels = 16'384;
	const std::size_t Cross = InText.find('x');
	const auto Width = ParseWhole(InText.substr(0, Cross), MostPixels);
	const auto Height =
		Cross != std::string_view::npos ? ParseWhole(InText.substr(Cross + 1), MostPixels) : std::nullopt;
	return Width && Height ? std::optional(std::pair(*Width, *Height)) : std::nullopt;
}

std::optional<std::pair<int32, int32>> ParseFrameRate(std::string_view InText)
{
	constexpr int32 MostFrames = 1000;
	constexpr int32 Thousandth = 1000;
	constexpr int32 MostParts = 100'000'000;
	const std::size_t Slash = InText.find('/');
	std::optional<std::pair<int32, int32>> Rate;
	if (Slash != std::string_view::npos)
	{
		const auto Over = ParseWhole(InText.substr(0, Slash), MostParts);
		const auto Under = ParseWhole(InText.substr(Slash + 1), MostParts);
		Rate = Over && Under ? std::optional(std::pair(*Over, *Under)) : std::nullopt;
	}
	else if (const auto Decimal = ParseDecimal(InText); Decimal && *Decimal <= MostFrames)
	{
		Rate = std::pair(static_cast<int32>(std::lround(*Decimal * Thousandth)), Thousandth);
	}
	// A frame that lasts for hours helps nobody.
	const bool bServed =
		Rate && Rate->first <= int64{MostFrames} * Rate->second && int64{Rate->first} * Thousandth >= Rate->second;
	return bServed ? Rate : std::nullopt;
}

std::optional<int64> ParseOffset(std::string_view InText)
{
	constexpr double SecondsPerDay = 86'400.0;
	const bool bBack = InText.starts_with('-');
	const bool bSigned = bBack || InText.starts_with('+');
	const std::optional<double> Seconds = ParseTime(InText.substr(bSigned ? 1 : 0));
	if (!Seconds || *Seconds > SecondsPerDay)
	{
		return std::nullopt;
	}
	const int64 Ticks = std::llround(*Seconds * ETimespan::TicksPerSecond);
	return bBack ? -Ticks : Ticks;
}

} // namespace Flitmark
