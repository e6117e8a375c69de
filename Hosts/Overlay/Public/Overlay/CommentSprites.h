#pragma once

#include "Overlay/CommentLook.h"
#include "Stage/Stage.h"
#include "Text/TextEngine.h"

#include <atomic>
#include <memory>
#include <unordered_map>
#include <vector>

namespace Flitmark
{

/** A drawn comment; X and Y are its top-left corner in pixels of the view. */
struct FCommentSprite
{
	std::shared_ptr<const FSprite> Sprite;
	double X = 0.0;
	double Y = 0.0;
};

/**
 * Draws what a stage has on its canvas: each comment once, when it first comes into view, and equal comments together.
 * A sprite is let go when its comment leaves the canvas.
 */
class FCommentSprites
{
public:
	/** Bytes of all sprites alive; a screen full of comments takes a tenth. Beyond it comments stay undrawn. */
	static constexpr int64 MaxBytes = int64{512} << 20;

	/** InEngine outlives this. */
	explicit FCommentSprites(FTextEngine& InEngine, int64 InMaxBytes = MaxBytes);

	/** Canvas in canvas units, and pixels per canvas unit; lets all sprites go. */
	void SetView(FVector2D InCanvasSize, FTextScale InScale);

	/** The comments in view, in painting order, less those without anything to be seen. */
	void Collect(const std::vector<FPaintComment>& InComments, std::vector<FCommentSprite>& OutSprites);

	/** Whether something of a comment was left undrawn, because it is absurdly long or large. */
	bool WasCut() const { return bCut; }

private:
	struct FHeld
	{
		/** Null where there is nothing to be seen. */
		std::shared_ptr<const FSprite> Sprite;
		uint64 LastFrame = 0;
	};

	bool IsInView(const FPaintComment& InComment) const;
	bool HasRoomFor(const FPaintComment& InComment) const;
	std::shared_ptr<const FSprite> Draw(const FPaintComment& InComment);
	void LetGo();

	FTextEngine& Engine;
	const int64 Limit;
	FVector2D CanvasSize;
	FTextScale Scale;
	uint64 Frame = 0;
	bool bCut = false;
	std::unordered_map<uint64, FHeld> Held;
	std::unordered_map<FCommentLook, std::weak_ptr<const FSprite>, FCommentLookHash> Drawn;
	/** Bytes of the sprites alive, wherever they are held. */
	std::shared_ptr<std::atomic<int64>> Bytes;
};

} // namespace Flitmark
