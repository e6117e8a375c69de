#pragma once

#include <string>

namespace Flitmark
{

/** What the player plays, and how. */
struct FMpvState
{
	/** As it was opened; empty where nothing is. */
	std::string Url;

	/** The container's title, or the file's name. */
	std::string Title;

	/** Decoding has begun: length and size are known. */
	bool bLoaded = false;

	/** Told to pause; what waits for data is not paused. */
	bool bPaused = false;

	/** Waits for data. */
	bool bBuffering = false;

	/** Looks for a new place. */
	bool bSeeking = false;

	/** Stands at the end. */
	bool bEnded = false;

	bool bSeekable = false;

	/** Seconds; the duration is 0 where it is not known (live). */
	double Position = 0.0;
	double Duration = 0.0;
	/** Up to where it has been read from the file or received, in seconds from the start. */
	double BufferedTo = 0.0;

	/** Times normal speed. */
	double Speed = 1.0;

	/** Percent, 100 is the file's own loudness. */
	double Volume = 100.0;
	bool bMuted = false;

	/** The picture as it is to be shown (turned, with square pixels); 0 where there is none. */
	int Width = 0;
	int Height = 0;

	/** The hardware decoder in use; "no" or empty for none. */
	std::string HardwareDecoder;

	bool operator==(const FMpvState&) const = default;
};

} // namespace Flitmark
