#pragma once

#include "Overlay/OverlayRunner.h"
#include "Overlay/TextMeasure.h"
#include "Scene/FrameClock.h"
#include "Scene/FrameMeter.h"
#include "Scene/SpriteMaker.h"
#include "Formats/CommentDocument.h"

#include <QSizeF>

#include <memory>
#include <string>
#include <vector>

namespace Flitmark
{

/**
 * The overlay over the player's picture, run by the display's clock, with sprites made by workers. Interface thread
 * only; one at a time per process. Functions without a comment are as in FOverlayRunner.
 */
class FOverlay
{
public:
	/** Null with OutError set if no font is found or no stage can be built. */
	static std::unique_ptr<FOverlay> Create(std::string& OutError);
	~FOverlay();

	FStage& GetStage() const { return Runner->GetStage(); }

	/** InText: the text from which InDocument was read. */
	void Load(FString InText, const FCommentDocument& InDocument);
	/** Removes the document and its comments. */
	void Clear();

	/**
	 * The picture's size in logical pixels; an empty one changes nothing. Called by the layer that shows the overlay. A
	 * small picture gets a canvas lower than usual, so that comments stay legible.
	 */
	void SetView(QSizeF InPictureSize, double InDevicePixelRatio);
	/** In device pixels. */
	const FOverlayView& GetView() const { return Runner->GetView(); }
	double GetDevicePixelRatio() const { return DevicePixelRatio; }
	/** The display's frames per second; called by the layer. */
	void SetRefreshRate(double InHertz) { Clock.SetRefreshRate(InHertz); }

	void SetPaused(bool bInPaused);
	void SetRate(double InRate);
	void SetSpeedScale(double InScale) { Runner->GetSettings().Speed = InScale; }
	const FOverlaySettings& GetSettings() const { return Runner->GetSettings(); }
	/** The next frame shows everything as if it had always been so, also while paused. Opacity is up to the window. */
	void SetSettings(const FOverlaySettings& InSettings);
	/** Seconds; anything but a sensible time is clamped. */
	void SetMediaTime(double InSeconds);
	void SetUrl(const std::string& InUrl);
	/** Runs in slices; see FOverlayRunner. */
	void Jump();

	/**
	 * One display frame. If the media time is not what the last frame and the time since then predict (the window was
	 * minimized, the clock stepped), this is a jump.
	 */
	void RunFrame();
	/** The same for a given frame time, in seconds. */
	void RunFrame(double InSeconds) { RunFrame(InSeconds, false); }

	bool IsMoving() const { return Runner->IsMoving(); }
	/** Whether what is drawn has changed since the last call. */
	bool TakeChange();
	const FCommentScene& GetScene() const { return Runner->GetScene(); }
	FTextEngine& GetEngine() const { return Measure->GetEngine(); }
	/** Makes the comments' sprites; stops with the overlay, even if someone still holds it. */
	const std::shared_ptr<FSpriteMaker>& GetMaker() const { return Maker; }

	const FFrameMeter& GetMeter() const { return Meter; }
	FFrameMeter& GetMeter() { return Meter; }

private:
	/** A comment as drawn. */
	struct FDrawn
	{
		uint64 StyleId = 0;
		FVector2D Position;

		bool operator==(const FDrawn&) const = default;
	};

	explicit FOverlay(std::unique_ptr<FTextMeasure> InMeasure);
	void RunFrame(double InSeconds, bool bInLate);
	bool HasLeapt(double InSeconds, bool bInLate) const;

	const std::unique_ptr<FTextMeasure> Measure;
	std::unique_ptr<FOverlayRunner> Runner;
	std::shared_ptr<FSpriteMaker> Maker;
	double DevicePixelRatio = 1.0;
	bool bPaused = false;
	double Rate = 1.0;
	/** Seconds of media time: now, and at the last frame. */
	double MediaTime = 0.0;
	double FrameMediaTime = 0.0;
	/** As of the last TakeChange. */
	std::vector<FDrawn> Drawn;
	FFrameClock Clock;
	FFrameMeter Meter;
};

} // namespace Flitmark
