#include "Video/VideoOverlay.h"

#include "OverlayDrawing.h"
#include "PartObstacle.h"
#include "Files/ExceptionText.h"

#include <exception>

namespace Flitmark
{

FVideoResult DrawOverlay(const FOverlayVideoOptions& InOptions, IOverlaySource& InOverlay, IBurnProgress& InProgress,
						 const std::atomic<bool>& InCancel)
try
{
	if (const std::string Obstacle = PartObstacle(InOptions.From, InOptions.To, InOptions.Crf); !Obstacle.empty())
	{
		return FVideoResult::Fail(Obstacle);
	}
	FOverlayDrawing Drawing(InOptions, InProgress, InCancel);
	return Drawing.Draw(InOverlay);
}
catch (const std::exception& Exception)
{
	return FVideoResult::Fail(InOptions.Output + ": the overlay failed: " + ExplainException(Exception));
}

} // namespace Flitmark
