#pragma once

#include "Overlay/CommentScene.h"
#include "Overlay/MeasureAhead.h"
#include "Overlay/OverlaySettings.h"
#include "Overlay/OverlayView.h"
#include "Overlay/PlacementTally.h"
#include "Overlay/ScaledMeasure.h"
#include "Overlay/TextMeasure.h"
#include "Stage/Stage.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Flitmark
{

/** Runs the overlay over a picture, for every host: frame by frame, with real fonts. One at a time, on one thread. */
class FOverlayRunner
{
public:
	/** Seconds that a slice of a jump takes, unless a single second's comments take longer. */
	static constexpr double SliceTime = 0.006;

	/** Null with OutError set where no stage can be built. InSeed: see FStageOptions. InMeasure outlives this. */
	static std::unique_ptr<FOverlayRunner> Create(FTextMeasure& InMeasure, uint32 InSeed, std::string& OutError);

	FStage& GetStage() const { return *Stage; }

	/**
	 * For a host whose viewer jumps about: each second draws its own random numbers, so that the same place gives the same
	 * picture however it was reached. Otherwise all draws are one sequence, as in a trace.
	 */
	void SeedEachSecond() { bSeedsEachSecond = true; }

	/** The first view lays the canvas out; until then frames do nothing. */
	void SetView(const FOverlayView& InView);
	const FOverlayView& GetView() const { return View; }

	/** Read by every frame, and by SetMediaTime. */
	FOverlaySettings& GetSettings() { return Settings; }

	/**
	 * Replaces the comment document and shows what it would show by now, in slices. InTexts: the texts that it will show.
	 * Before the first view it is kept until then.
	 */
	void Load(FString InDocument, std::vector<FUpcomingText> InTexts);

	/** The media's clock, in 100-nanosecond ticks: comments are due by it. */
	void SetMediaTime(int64 InTicks);
	/** Playback rate; 1 is the media's own. */
	void SetRate(double InRate) { Rate = InRate; }
	void SetPaused(bool bInPaused);

	/**
	 * After the media time has jumped: the canvas becomes what it would be had the media been played up to there, though
	 * no frame of that is seen. Paused or not stays as it is.
	 */
	void Jump();
	/**
	 * The same for a host that must not wait: a slice at once, further ones in the following frames, paused or not, until
	 * the place is reached; the scene is empty meanwhile. A usual document takes a single slice.
	 */
	void JumpInSlices();
	bool IsJumping() const { return JumpSecond.has_value(); }

	/** One frame: comments advance by InSeconds times rate and speed, timers by InSeconds alone. */
	void RunFrame(double InSeconds);

	/**
	 * Whether a frame is needed as soon as possible: a comment scrolls, or a jump is under way. Standing comments change
	 * with the media's seconds alone.
	 */
	bool IsMoving() const;

	/** What is to be drawn after the last frame. */
	const FCommentScene& GetScene() const { return IsJumping() ? NoScene : Scene; }
	/** How many comments are displayed on the canvas, in view or not. */
	int32 GetNumComments() const { return IsJumping() ? 0 : static_cast<int32>(Comments.size()); }

	/** What became of the comments so far. */
	const FPlacementTally& GetTally() const { return *Tally; }
	/** The seconds of comments' time that frames have run; the last is below the first before any. */
	int64 GetFirstSecond() const { return FirstSecond; }
	int64 GetLastSecond() const { return LastSecond; }

private:
	/** A text wider than most, which may be shown for longer. */
	struct FWideText
	{
		/** Of media time. */
		int64 Second = 0;
		/** Canvas units, at most. */
		double Width = 0.0;
	};

	explicit FOverlayRunner(FTextMeasure& InMeasure)
		: Measure(InMeasure)
		, Scaled(InMeasure)
	{
	}
	void ApplySettings();
	bool IsOpen() const;
	void ApplyPause();
	void UpdateScene(double InSeconds);

	/** Makes the draws of a second's comments depend on nothing but the second. */
	void SeedSecond(int64 InSecond);
	bool HasLostComments();
	void ListWideTexts(const std::vector<FUpcomingText>& InTexts);
	int64 FindFirstSecond() const;
	void BeginJump();
	void RunSlice(double InMaxSeconds);
	void RunJumpSecond(int64 InTargetTicks);
	void RunSilently(double InSeconds);
	void DropSentComments();

	FTextMeasure& Measure;
	FScaledMeasure Scaled;
	std::unique_ptr<FStage> Stage;
	std::unique_ptr<FPlacementTally> Tally;
	int64 FirstSecond = MAX_int64;
	int64 LastSecond = -1;
	std::unique_ptr<FMeasureAhead> Ahead;

	FOverlayView View;
	bool bLaidOut = false;
	/** Kept until the canvas is laid out. */
	FString PendingDocument;

	FOverlaySettings Settings;
	double Rate = 1.0;
	bool bPaused = false;
	/** One of Comments scrolls. */
	bool bScrolls = false;
	/** The comments were switched on at the last frame. */
	bool bWasOpen = true;

	uint32 Seed = 0;
	bool bSeedsEachSecond = false;
	std::optional<int64> SeededSecond;
	/** While a jump is under way: the second of media time whose comments start next. */
	std::optional<int64> JumpSecond;
	std::vector<FWideText> WideTexts;
	/** Seconds that the timers have not been told of during the jump. */
	double OwedTimerTime = 0.0;

	std::vector<FPaintComment> Comments;
	FCommentScene Scene;
	const FCommentScene NoScene;
};

} // namespace Flitmark
