#pragma once

#include "CoreTypes.h"
#include "Video/OverlaySource.h"
#include "Video/VideoResult.h"

#include <atomic>
#include <optional>
#include <string>

namespace Flitmark
{

/** What to burn, and how. */
struct FBurnOptions
{
	std::string Input;

	/** See FVideoFile. */
	bool bAllowPlaylists = false;

	/** The extension selects the container. Appears, and replaces an existing file, only once complete. */
	std::string Output;

	/** The encoder's FFmpeg name; empty for the container's usual one. */
	std::string Codec;

	/** Quality and preset on the encoder's own scale; empty for its defaults. */
	std::optional<double> Crf;
	std::string Preset;

	/** Threads for the decoder and for the encoder; 0 lets each decide. */
	int32 Threads = 0;

	/** Seconds of media time: frames from From (inclusive) to To (exclusive). The output then starts at 0. */
	std::optional<double> From;
	std::optional<double> To;
};

/** Progress of a burn. */
struct FBurnState
{
	/** Frames passed to the encoder, including this one. */
	int64 Frames = 0;

	/** Seconds of video done, and in total (0 if the file does not say). */
	double DoneSeconds = 0.0;
	double TotalSeconds = 0.0;
};

/** Receives updates during a burn, on the burning thread. */
class IBurnProgress
{
public:
	virtual ~IBurnProgress() = default;

	/** After every frame. */
	virtual void OnFrame(const FBurnState& InState) = 0;

	/** Something the user should know that is not a failure: a dropped stream, a conversion, skipped damage. */
	virtual void OnMessage(const std::string& InMessage) = 0;
};

/**
 * Decodes the video, blends the overlay's comments into its frames, and reencodes it; audio and subtitles are
 * copied, timestamps kept. If it fails, or Cancel becomes true, no file is left over.
 *
 * The overlay receives the times of all frames from the file's first, minus the file's start time, including
 * the frames before From, which are not decoded. So a comment stands where it would in the whole video.
 */
FVideoResult Burn(const FBurnOptions& InOptions, IOverlaySource& InOverlay, IBurnProgress& InProgress,
				  const std::atomic<bool>& InCancel);

} // namespace Flitmark
