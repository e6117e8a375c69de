#pragma once

#include "BlankSaver.h"
#include "FramePainter.h"
#include "FrameSchedule.h"
#include "OverlayClock.h"
#include "OverlaySink.h"
#include "VideoEncoder.h"
#include "Video/VideoOverlay.h"

#include <memory>
#include <optional>
#include <string>

namespace Flitmark
{

/** One overlay, from opening the output to finishing it. */
class FOverlayDrawing
{
public:
	FOverlayDrawing(const FOverlayVideoOptions& InOptions, IBurnProgress& InProgress,
					const std::atomic<bool>& InCancel);

	FVideoResult Draw(IOverlaySource& InOverlay);

private:
	// Each returns false with Error set, or if the drawing was canceled.
	bool Open();
	bool StartEncoder();
	bool DrawFrames(IOverlaySource& InOverlay);
	bool DrawFrame(const FScheduledFrame& InFrame, std::span<const FPlacedSprite> InSprites);
	bool Finish();

	void MakeBlank();
	void Tell(const FScheduledFrame& InFrame);

	const FOverlayVideoOptions& Options;
	IBurnProgress& Progress;
	const std::atomic<bool>& Cancel;
	std::string Error;

	std::unique_ptr<FFrameSchedule> Schedule;
	std::unique_ptr<IOverlaySink> Sink;
	std::unique_ptr<FVideoEncoder> Encoder;
	std::optional<FBlankSaver> Saver;
	FFramePainter Painter{FOrientation()};

	/** A frame without comments, which all painted ones are copies of. */
	FFramePtr Blank;

	/** Of the first frame drawn. */
	std::optional<FScheduledFrame> First;
	FBurnState State;
};

} // namespace Flitmark
