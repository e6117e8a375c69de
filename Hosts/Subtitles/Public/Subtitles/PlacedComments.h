#pragma once

#include "CoreMinimal.h"
#include "Overlay/CommentScene.h"

#include <memory>
#include <vector>

namespace Flitmark
{

class FCommentDocument;
class FOverlayRunner;

/** A comment that found a lane, from the first frame that showed it to the first that no longer did. */
struct FPlacedComment
{
	std::shared_ptr<const FSharedStyle> Style;

	/** Media time in ticks of 100 ns. */
	int64 Begin = 0;
	int64 End = 0;

	/** Top-left corner at Begin in canvas units, and canvas units that it moves a second. */
	FVector2D Position = FVector2D::ZeroVector;
	FVector2D Velocity = FVector2D::ZeroVector;

	/** The viewer's own, drawn over the others. */
	bool bViewers = false;

	FVector2D GetPosition(int64 InTicks) const;
};

/** The comments of one run in painting order. */
struct FPlacedComments
{
	std::vector<FPlacedComment> Comments;
	/** As the run's canvas; canvas units. */
	FVector2f CanvasSize = FVector2f::ZeroVector;
};

/**
 * Runs the overlay through a whole document, at InFps frames a second (1 to 1000), and notes what its scene shows.
 * InOutRunner: with its view set and the document loaded, at the beginning. InDocument: what it loaded.
 */
FPlacedComments PlaceComments(FOverlayRunner& InOutRunner, const FCommentDocument& InDocument, int32 InFps);

} // namespace Flitmark
