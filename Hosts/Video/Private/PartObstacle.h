#pragma once

#include <cmath>
#include <optional>
#include <string>

namespace Flitmark
{

/** Why a part of media time, in seconds, or an encoder's quality makes no sense; empty if both do. */
inline std::string PartObstacle(const std::optional<double>& InFrom, const std::optional<double>& InTo,
								const std::optional<double>& InCrf)
{
	// Longer than any video, and far from where ticks run over.
	constexpr double LongestSeconds = 1e9;
	for (const std::optional<double>& Each : {InFrom, InTo})
	{
		if (Each && !(*Each >= 0.0 && *Each <= LongestSeconds))
		{
			return "the start and end must be 0 seconds or later";
		}
	}
	if (InTo && *InTo <= InFrom.value_or(0.0))
	{
		return "the end must be after the start";
	}
	return InCrf && !std::isfinite(*InCrf) ? "the quality must be a number" : "";
}

} // namespace Flitmark
