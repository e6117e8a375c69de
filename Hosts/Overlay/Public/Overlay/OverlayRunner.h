#pragma once

#include "Overlay/CommentScene.h"
#include "Overlay/MeasureAhead.h"
#include "Overlay/OverlaySettings.h"
#include "Overlay/OverlayView.h"
#include "Overlay/ScaledMeasure.h"
#include "Overlay/TextMeasure.h"
#include "Stage/Stage.h"

#include <memory>
#include <string>
#include <vector>

namespace Flitmark
{

/** Runs the overlay over a picture, for every host: frame by frame, with real fonts. One at a time, on one thread. */
class FOverlayRunner
{
public:
	/** Null with OutError set where no stage can be built. InSeed: see FStageOptions. InMeasure outlives this. */
	static std::unique_ptr<FOverlayRunner> Create(FTextMeasure& InMeasure, uint32 InSeed, std::string& OutError);

	FStage& GetStage() const { return *Stage; }

	/** The first view lays the canvas out; until then frames do nothing. */
	void SetView(const FOverlayView& InView);
	const FOverlayView& GetView() const { return View; }

	/** Read by every frame, and by SetMediaTime. */
	FOverlaySettings& GetSettings() { return Settings; }

	/**
	 * Replaces the comment document; what is due in the current second starts with the next frame. InTexts: the texts that
	 * it will show. Before the first view it is kept until then.
	 */
	void Load(FString InDocument, std::vector<FUpcomingText> InTexts);

	/** The media's clock, in 100-nanosecond ticks: comments are due by it. */
	void SetMediaTime(int64 InTicks);
	/** Playback rate; 1 is the media's own. */
	void SetRate(double InRate) { Rate = InRate; }
	void SetPaused(bool bInPaused);

	/** After a seek, with the new media time set: clears the canvas and makes the current second due again. */
	void Jump();

	/** One frame: comments advance by InSeconds times rate and speed, timers by InSeconds alone. */
	void RunFrame(double InSeconds);

	/** Whether further frames will move or end a comment on the canvas. */
	bool IsMoving() const;

	/** What is to be drawn after the last frame. */
	const FCommentScene& GetScene() const { return Scene; }
	/** How many comments are displayed on the canvas, in view or not. */
	int32 GetNumComments() const { return static_cast<int32>(Comments.size()); }

private:
	explicit FOverlayRunner(FTextMeasure& InMeasure)
		: Measure(InMeasure)
		, Scaled(InMeasure)
	{
	}
	void ApplySettings();
	void ApplyPause();
	void UpdateScene(double InSeconds);

	FTextMeasure& Measure;
	FScaledMeasure Scaled;
	std::unique_ptr<FStage> Stage;
	std::unique_ptr<FMeasureAhead> Ahead;

	FOverlayView View;
	bool bLaidOut = false;
	/** Kept until the canvas is laid out. */
	FString PendingDocument;

	FOverlaySettings Settings;
	double Rate = 1.0;
	bool bPaused = false;

	std::vector<FPaintComment> Comments;
	FCommentScene Scene;
};

} // namespace Flitmark
