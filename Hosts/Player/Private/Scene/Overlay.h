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
 * The overlay over the player's picture, run by the display's clock, its sprites made by workers. Everything on the
 * interface thread; one at a time in a process. What says nothing here does as FOverlayRunner has it.
 */
class FOverlay
{
public:
	/** Null with OutError set where no font is found or no stage can be built. */
	static std::unique_ptr<FOverlay> Create(std::string& OutError);
	~FOverlay();

	FStage& GetStage() const { return Runner->GetStage(); }

	/** InText is the text that InDocument was read from. */
	void Load(FString InText, const FCommentDocument& InDocument);
	/** No document and no comments. */
	void Clear();

	/**
	 * The picture's size in logical pixels; an empty one changes nothing. The layer that shows the overlay calls this. For a
	 * small picture the canvas is lower than usual, so that comments stay legible.
	 */
	void SetView(QSizeF InPictureSize, double InDevicePixelRatio);
	/** In device pixels. */
	const FOverlayView& GetView() const { return Runner->GetView(); }
	double GetDevicePixelRatio() const { return DevicePixelRatio; }
	/** Frames a second of the display; the layer calls this. */
	void SetRefreshRate(double InHertz) { Clock.SetRefreshRate(InHertz); }

	void SetPaused(bool bInPaused);
	void SetRate(double InRate);
	void SetSpeedScale(double InScale) { Runner->GetSettings().Speed = InScale; }
	/** Seconds; what is not a sensible time is clamped. */
	void SetMediaTime(double InSeconds);
	void SetUrl(const std::string& InUrl);
	/** In slices, see FOverlayRunner. */
	void Jump();

	/**
	 * One display frame. Where the media is not where its last frame and the time since then would have it (the window was
	 * minimized, the clock stepped), this is a jump.
	 */
	void RunFrame();
	/** The same with the frame's time given, in seconds. */
	void RunFrame(double InSeconds) { RunFrame(InSeconds, false); }

	bool IsMoving() const { return Runner->IsMoving(); }
	/** Whether there is anything else to be drawn since the last call of this. */
	bool TakeChange();
	const FCommentScene& GetScene() const { return Runner->GetScene(); }
	FTextEngine& GetEngine() const { return Measure->GetEngine(); }
	/** Makes the comments' sprites; it stops with the overlay, whoever still holds it. */
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
