#pragma once

#include "Overlay/CommentSprites.h"
#include "Comments/CommentsInput.h"
#include "Overlay/MeasureAhead.h"
#include "Video/OverlaySource.h"
#include "Stage/Stage.h"
#include "Overlay/TextMeasure.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Flitmark
{

/** How a canvas covers a video's picture. */
struct FCanvasView
{
	/** Canvas units. */
	FVector2f CanvasSize = FVector2f::ZeroVector;
	/** Pixels per canvas unit. */
	FTextScale Scale;

	/** InUnitsPerPixel: of the picture's height; without it the canvas is 1,080 units high. */
	static FCanvasView Cover(const FVideoShape& InShape, std::optional<double> InUnitsPerPixel);
};

/** The overlay over a video that is burnt: a stage that runs on the video's frames, and its comments drawn. */
class FStageOverlay final : public IOverlaySource
{
public:
	/** Null with OutError set where no stage can be built. InMeasure outlives this. */
	static std::unique_ptr<FStageOverlay> Create(FCommentsFile InComments, std::optional<double> InUnitsPerPixel,
												 uint32 InSeed, FTextMeasure& InMeasure, std::string& OutError);

	void Open(const FVideoShape& InShape) override;
	void Advance(int64 InTicks, double InDeltaSeconds, std::vector<FPlacedSprite>& OutSprites) override;

	/** Whether something of a comment was left unpainted, because it is absurdly long or large. */
	bool WasCut() const { return Sprites.WasCut(); }

private:
	FStageOverlay(FCommentsFile InComments, std::optional<double> InUnitsPerPixel, FTextMeasure& InMeasure);

	const std::optional<double> UnitsPerPixel;
	FString Document;
	std::unique_ptr<FStage> Stage;
	FCommentSprites Sprites;
	FMeasureAhead Ahead;

	std::vector<FPaintComment> Comments;
	std::vector<FCommentSprite> Drawn;
};

} // namespace Flitmark
