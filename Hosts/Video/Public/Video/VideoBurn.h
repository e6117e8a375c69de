#pragma once

#include "CoreTypes.h"
#include "Video/OverlaySource.h"
#include "Video/VideoResult.h"

#include <atomic>
#include <optional>
#include <string>

namespace Flitmark
{

/** What is to be burnt, and how. */
struct FBurnOptions
{
	std::string Input;

	/** Its ending names the container. Appears only when whole; an earlier file of that name is replaced then. */
	std::string Output;

	/** FFmpeg's name of the encoder. */
	std::string Codec = "libx264";

	/** The encoder's own quality scale and presets; empty: its defaults. */
	std::optional<double> Crf;
	std::string Preset;

	/** Threads for the decoder and for the encoder; 0: as they see fit. */
	int32 Threads = 0;

	/** Seconds of media time: frames from From (included) to To (left out). The output then starts at 0. */
	std::optional<double> From;
	std::optional<double> To;
};

/** How far a burn has come. */
struct FBurnState
{
	/** Frames handed to the encoder, this one included. */
	int64 Frames = 0;

	/** Seconds of video done, and to do in all (0 where the file does not say). */
	double DoneSeconds = 0.0;
	double TotalSeconds = 0.0;
};

/** Told about a burn while it runs, on the thread that burns. */
class IBurnProgress
{
public:
	virtual ~IBurnProgress() = default;

	/** After every frame. */
	virtual void OnFrame(const FBurnState& InState) = 0;

	/** Something the user should know that is no failure: a stream left out, a conversion, damage passed over. */
	virtual void OnMessage(const std::string& InMessage) = 0;
};

/**
 * Decodes the video, blends the overlay's comments into its frames, and encodes it again; sound and subtitles are
 * copied, timestamps kept. Where it fails, or Cancel becomes true, nothing is left behind.
 *
 * Times the overlay is given: those of the file's frames from its first, less the file's start time, also of the
 * frames before From, which are not decoded: so a comment stands where it stands in a burn of the whole video.
 */
FVideoResult Burn(const FBurnOptions& InOptions, IOverlaySource& InOverlay, IBurnProgress& InProgress,
				  const std::atomic<bool>& InCancel);

} // namespace Flitmark
