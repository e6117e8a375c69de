#include "Video/VideoBurn.h"

#include "BurnRun.h"
#include "Files/ExceptionText.h"

#include <cmath>
#include <exception>

namespace Flitmark
{

namespace
{

/** Longer than any video, and far from where ticks run over. */
constexpr double LongestSeconds = 1e9;

bool IsTime(const std::optional<double>& InSeconds)
{
	return !InSeconds || (*InSeconds >= 0.0 && *InSeconds <= LongestSeconds);
}

std::string OptionsObstacle(const FBurnOptions& InOptions)
{
	if (!IsTime(InOptions.From) || !IsTime(InOptions.To))
	{
		return "the start and end must be 0 seconds or later";
	}
	if (InOptions.To && *InOptions.To <= InOptions.From.value_or(0.0))
	{
		return "the end must be after the start";
	}
	if (InOptions.Crf && !std::isfinite(*InOptions.Crf))
	{
		return "the quality must be a number";
	}
	return OutputObstacle(InOptions.Input, InOptions.Output);
}

} // namespace

FVideoResult Burn(const FBurnOptions& InOptions, IOverlaySource& InOverlay, IBurnProgress& InProgress,
				  const std::atomic<bool>& InCancel)
try
{
	if (const std::string Obstacle = OptionsObstacle(InOptions); !Obstacle.empty())
	{
		return FVideoResult::Fail(Obstacle);
	}
	FBurnRun Run(InOptions, InProgress, InCancel);
	return Run.Burn(InOverlay);
}
catch (const std::exception& Exception)
{
	return FVideoResult::Fail(InOptions.Input + ": the burn failed: " + ExplainException(Exception));
}

} // namespace Flitmark
