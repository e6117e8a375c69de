#pragma once

#include "Overlay/CommentLook.h"
#include "Stage/Stage.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace Flitmark
{

/** A look in use; equal looks share one. */
struct FSharedLook
{
	/** From 1, never used again. */
	uint64 Id = 0;
	FCommentLook Look;
};

/** A comment that is in view or about to be. */
struct FSceneComment
{
	std::shared_ptr<const FSharedLook> Look;

	/** Top-left corner in canvas units. */
	FVector2D Position = FVector2D::ZeroVector;

	/** The direction in which it was seen to move: there it stands between pixels. */
	bool bMovesX = false;
	bool bMovesY = false;

	/** At least partly within the canvas; others enter soon. */
	bool bInView = false;
	/** The viewer's own, drawn over the others. */
	bool bViewers = false;
};

/** What of a stage's comments is to be drawn. */
class FCommentScene
{
public:
	/** One frame's comments, in painting order, on a canvas of the given size in canvas units. */
	void Update(const std::vector<FPaintComment>& InComments, FVector2D InCanvasSize);

	/** In painting order, less those without anything to be seen. */
	const std::vector<FSceneComment>& GetComments() const { return Comments; }

private:
	struct FHeld
	{
		/** Null where there is nothing to be seen. */
		std::shared_ptr<const FSharedLook> Look;
		FVector2D FirstPosition = FVector2D::ZeroVector;
		bool bMovesX = false;
		bool bMovesY = false;
		uint64 LastFrame = 0;
	};

	std::shared_ptr<const FSharedLook> Share(const FPaintComment& InComment);
	void LetGo();

	uint64 Frame = 0;
	uint64 LastId = 0;
	std::unordered_map<uint64, FHeld> Held;
	std::unordered_map<FCommentLook, std::weak_ptr<const FSharedLook>, FCommentLookHash> Looks;
	/** How many looks there may be before those that nobody uses are forgotten. */
	std::size_t MostLooks = 0;
	std::vector<FSceneComment> Comments;
};

} // namespace Flitmark
