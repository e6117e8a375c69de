#pragma once

#include "Overlay/CommentStyle.h"
#include "Stage/Stage.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace Flitmark
{

/** A style in use; comments of equal style share one. */
struct FSharedStyle
{
	/** Starts at 1; never used again. */
	uint64 Id = 0;
	FCommentStyle Style;
};

/** A comment to be drawn, now or soon. */
struct FSceneComment
{
	/** See FPaintComment. */
	uint64 Key = 0;

	std::shared_ptr<const FSharedStyle> Style;

	/** Top-left corner in canvas units. */
	FVector2D Position = FVector2D::ZeroVector;

	/** Seconds of the comments' time: since it appeared, and until it goes. */
	double Age = 0.0;
	double TimeLeft = 0.0;

	/** Has been seen moving in this direction, so it belongs between pixels there. */
	bool bMovesX = false;
	bool bMovesY = false;

	/** Stands at the picture's bottom. */
	bool bAtBottom = false;

	/** Has been on the canvas, at least in part; until then there is nothing to see of it. */
	bool bEntered = false;
	/** The viewer's own, drawn over the others. */
	bool bViewers = false;
};

/** What a stage's canvas has to do with the picture. */
struct FSceneFrame
{
	/** The picture in canvas units; both begin at the top left. */
	FVector2f PictureSize = FVector2f::ZeroVector;

	/** Height of the stage's canvas in canvas units: its bottom comments stand at the picture's bottom all the same. */
	double CanvasHeight = 0.0;

	/** Factor on the fonts' sizes. */
	double FontScale = 1.0;
};

/** Which of a stage's comments are to be drawn. What makes their sprites, and when, is up to the host. */
class FCommentScene
{
public:
	/**
	 * One frame's comments, in painting order. InSeconds: how far the comments' time has advanced since the last frame.
	 * Where a comment stands on the picture, and its size, are settled when it appears.
	 */
	void Update(const std::vector<FPaintComment>& InComments, const FSceneFrame& InFrame, double InSeconds);

	/** In painting order, without those that have nothing to show. */
	const std::vector<FSceneComment>& GetComments() const { return Comments; }

private:
	struct FHeld
	{
		/** Without a style where there is nothing to show. */
		FSceneComment Comment;
		/** On the picture. */
		FVector2D FirstPosition = FVector2D::ZeroVector;
		/** From the canvas to the picture, downward. */
		double Shift = 0.0;
		/** On the scene's clock. */
		double Begin = 0.0;
		double End = 0.0;
		uint64 LastFrame = 0;
	};

	FHeld Hold(const FPaintComment& InComment, const FSceneFrame& InFrame, double InShift, double InBegin);
	std::shared_ptr<const FSharedStyle> Share(FCommentStyle InStyle);
	void Sweep();

	uint64 Frame = 0;
	/** Seconds of the comments' time so far. */
	double Time = 0.0;
	uint64 LastId = 0;
	std::unordered_map<uint64, FHeld> Held;
	std::unordered_map<FCommentStyle, std::weak_ptr<const FSharedStyle>, FCommentStyleHash> Styles;
	/** How many styles may gather before the unused ones are dropped. */
	std::size_t MaxStyles = 0;
	std::vector<FSceneComment> Comments;
};

} // namespace Flitmark
