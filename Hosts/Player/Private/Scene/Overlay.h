#pragma once

#include "Scene/CommentScene.h"
#include "Scene/FrameClock.h"
#include "Scene/FrameMeter.h"
#include "Overlay/MeasureAhead.h"
#include "Scene/SpriteMaker.h"
#include "Stage/Stage.h"
#include "Overlay/TextMeasure.h"

#include <QSizeF>

#include <memory>
#include <string>
#include <vector>

namespace Flitmark
{

/** The picture's rectangle as the comments' canvas covers it. */
struct FOverlayView
{
	/** Logical pixels. */
	QSizeF PictureSize;
	double DevicePixelRatio = 1.0;

	/** Logical pixels per canvas unit. */
	double Scale = 1.0;
	/** Canvas units. */
	FVector2D CanvasSize = FVector2D::ZeroVector;

	/**
	 * The canvas is 1,080 units high, so that comments scale with the picture; under a small picture it grows instead, so
	 * that they stay legible.
	 */
	static FOverlayView Cover(QSizeF InPictureSize, double InDevicePixelRatio);
};

/** The stage run by a display's clock. Everything on the interface thread; one at a time in a process. */
class FOverlay
{
public:
	/** Null with OutError set where no font is found or no stage can be built. */
	static std::unique_ptr<FOverlay> Create(std::string& OutError);
	~FOverlay();

	FStage& GetStage() const { return *Stage; }

	/**
	 * Takes a comment document at once, in place of the one before; what is due in the present second comes with the next
	 * frame. InText is the text that InDocument was read from. Before the canvas has a size it is kept until then.
	 */
	void Load(FString InText, FCommentDocument InDocument);
	/** No document and no comments. */
	void Clear();

	/** The picture's size in logical pixels; an empty one changes nothing. The layer that shows the overlay calls this. */
	void SetView(QSizeF InPictureSize, double InDevicePixelRatio);
	const FOverlayView& GetView() const { return View; }
	/** Frames a second of the display; the layer calls this. */
	void SetRefreshRate(double InHertz) { Clock.SetRefreshRate(InHertz); }

	void SetPaused(bool bInPaused);
	/** Playback rate; 1 is the video's own. */
	void SetRate(double InRate) { Rate = InRate; }
	/** The viewer's factor on the comments' time. */
	void SetSpeedScale(double InScale) { SpeedScale = InScale; }
	/** The media's own clock: comments are due by it. */
	void SetMediaTime(double InSeconds);
	void SetUrl(const std::string& InUrl);

	/**
	 * After a seek, with the new media time set: the canvas is emptied, and the second that the media time is in falls due
	 * again.
	 */
	void Jump();

	/** One display frame: comments advance by its time x rate x speed scale, timers by its time alone. */
	void RunFrame();
	/** The same with the frame's time given, in seconds. */
	void RunFrame(double InSeconds);

	/** Whether a comment is on the canvas that further frames will move or end. */
	bool IsMoving() const;

	/** What is to be drawn after the last frame. */
	const FCommentScene& GetScene() const { return Scene; }
	FTextEngine& GetEngine() const { return Measure->GetEngine(); }
	/** Makes the comments' sprites; it ends with the overlay, whoever still holds it. */
	const std::shared_ptr<FSpriteMaker>& GetMaker() const { return Maker; }

	const FFrameMeter& GetMeter() const { return Meter; }
	FFrameMeter& GetMeter() { return Meter; }

private:
	explicit FOverlay(std::unique_ptr<FTextMeasure> InMeasure);
	void TakeDocument();
	void ApplyPause();
	void CollectScene();

	const std::unique_ptr<FTextMeasure> Measure;
	std::unique_ptr<FStage> Stage;
	std::unique_ptr<FMeasureAhead> Ahead;
	std::shared_ptr<FSpriteMaker> Maker;

	FOverlayView View;
	/** The canvas has been laid out, so that documents are taken. */
	bool bLaidOut = false;
	/** Kept until the canvas is laid out. */
	FString PendingText;

	FFrameClock Clock;
	double Rate = 1.0;
	double SpeedScale = 1.0;
	bool bPaused = false;

	std::vector<FPaintComment> Comments;
	FCommentScene Scene;
	FFrameMeter Meter;
};

} // namespace Flitmark
