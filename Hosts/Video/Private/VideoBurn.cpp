#include "Video/VideoBurn.h"

#include "BurnRun.h"
#include "PartObstacle.h"
#include "Files/ExceptionText.h"

#include <exception>

namespace Flitmark
{

FVideoResult Burn(const FBurnOptions& InOptions, IOverlaySource& InOverlay, IBurnProgress& InProgress,
				  const std::atomic<bool>& InCancel)
try
{
	std::string Obstacle = PartObstacle(InOptions.From, InOptions.To, InOptions.Crf);
	Obstacle = Obstacle.empty() ? OutputObstacle(InOptions.Input, InOptions.Output) : Obstacle;
	if (!Obstacle.empty())
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
