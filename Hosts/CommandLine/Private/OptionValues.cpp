#include "OptionValues.h"

#include "TraceScript.h"
#include "Values/TimeText.h"

#include <cmath>

namespace Flitmark
{

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
