#pragma once

#include "CoreTypes.h"
#include "Video/OverlaySource.h"
#include "Video/VideoBurn.h"
#include "Video/VideoResult.h"

#include <atomic>
#include <optional>
#include <string>

namespace Flitmark
{

/** A picture of comments alone: its size, its times, and where it goes. */
struct FOverlayVideoOptions
{
	/**
	 * The extension selects the container, which must have a place for transparency; *.png stands for numbered pictures, from
	 * 1 on, and has one %d or %05d in its name. A video appears, and replaces an existing file, only once complete; so
	 * does each picture.
	 */
	std::string Output;

	/** The encoder's FFmpeg name; empty for the container's usual one that keeps transparency. */
	std::string Codec;

	/** Quality and preset on the encoder's own scale; empty for its defaults. */
	std::optional<double> Crf;
	std::string Preset;

	/** Threads for the encoder; 0 lets it decide. */
	int32 Threads = 0;

	/** A video whose upright size, frame times, and end to take over; without one, the others below hold. */
	std::string Like;
	/** See FVideoFile. */
	bool bAllowPlaylists = false;
	int32 Width = 1920;
	int32 Height = 1080;

	/** Frames per second, as a fraction. */
	int32 RateNumerator = 60;
	int32 RateDenominator = 1;

	/**
	 * Seconds of media time: frames from From (inclusive) to To (exclusive). The output then starts at 0. Without To, it
	 * ends with the video, or once the overlay is over.
	 */
	std::optional<double> From;
	std::optional<double> To;
};

/**
 * Draws the overlay's comments on transparency (straight alpha), for other programs to lay over a video; over the same
 * video, that gives what Burn gives, up to rounding. If it fails, or Cancel becomes true, no video is left over; of
 * pictures, those that are complete are.
 */
FVideoResult DrawOverlay(const FOverlayVideoOptions& InOptions, IOverlaySource& InOverlay, IBurnProgress& InProgress,
						 const std::atomic<bool>& InCancel);

} // namespace Flitmark
