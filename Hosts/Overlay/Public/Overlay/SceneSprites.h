#pragma once

#include "Overlay/CommentScene.h"
#include "Overlay/OverlaySettings.h"
#include "Text/Sprite.h"
#include "Text/TextEngine.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace Flitmark
{

/**
 * Draws a scene's comments on the spot, for hosts that can wait: each style once, when a comment of that style first comes
 * into view. A sprite is freed when no comment has its style any more.
 */
class FSceneSprites
{
public:
	/** Bytes of all sprites; a screen full of comments takes a tenth. Beyond this, comments are not drawn. */
	static constexpr int64 MaxBytes = int64{512} << 20;

	/** InEngine outlives this. InScale: pixels per canvas unit. */
	FSceneSprites(FTextEngine& InEngine, FTextScale InScale, int64 InMaxBytes = MaxBytes);

	/** The comments that are or were in view, in painting order. */
	void Place(const FCommentScene& InScene, const FOverlaySettings& InSettings,
			   std::vector<FPlacedSprite>& OutSprites);

	/** Whether any comment was not drawn in full because it is absurdly long or large. */
	bool WasCut() const { return bCut; }

private:
	struct FDrawn
	{
		std::weak_ptr<const FSharedStyle> Style;
		std::shared_ptr<const FSprite> Sprite;
	};

	/** Null where there is no room. */
	std::shared_ptr<const FSprite> Draw(const std::shared_ptr<const FSharedStyle>& InStyle);
	bool HasRoomFor(const FCommentStyle& InStyle) const;
	void Sweep();

	FTextEngine& Engine;
	const FTextScale Scale;
	const int64 ByteLimit;
	int64 Bytes = 0;
	bool bCut = false;
	/** By the style's number. */
	std::unordered_map<uint64, FDrawn> Drawn;
};

} // namespace Flitmark
