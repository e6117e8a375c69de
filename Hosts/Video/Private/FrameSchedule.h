#pragma once

#include "CoreTypes.h"
#include "AvHandles.h"
#include "Video/VideoFile.h"
#include "Video/VideoOverlay.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Flitmark
{

/** When a frame is shown. */
struct FScheduledFrame
{
	/** Media time in ticks. */
	int64 Ticks = 0;

	/** The same, and for how long, in the schedule's time base. */
	int64 Stamp = 0;
	int64 Duration = 0;
};

/** The frames of a video that is yet to be made: of a fixed rate, or those of another video. */
class FFrameSchedule
{
public:
	/** Null with OutError set if the video to follow cannot be read, or the options make no sense; or if canceled. */
	static std::unique_ptr<FFrameSchedule> Make(const FOverlayVideoOptions& InOptions,
												const std::atomic<bool>& InCancel, std::string& OutError);

	/** The upright picture. */
	const FVideoShape& Shape() const { return Picture; }
	AVRational TimeBase() const { return Base; }
	AVRational Rate() const { return FrameRate; }

	/** Unspecified without a video to follow. */
	AVColorSpace Matrix() const { return Space; }

	/** The InIndex-th frame; empty after the last frame of the video. A fixed rate has no end. */
	std::optional<FScheduledFrame> Frame(int64 InIndex) const;

	/** In seconds; 0 if unknown. */
	double EndSeconds() const;

private:
	bool Follow(const FVideoFile& InFile, const std::atomic<bool>& InCancel, std::string& OutError);

	FVideoShape Picture;
	AVRational Base{1, 1};
	AVRational FrameRate{0, 1};
	AVColorSpace Space = AVCOL_SPC_UNSPECIFIED;

	/** Of the video to follow; the last one is its end. */
	std::vector<int64> Ticks;
	std::vector<int64> Stamps;
};

} // namespace Flitmark
