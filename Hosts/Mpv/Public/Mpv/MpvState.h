#pragma once

#include <string>

namespace Flitmark
{

/** What the player plays, and how. */
struct FMpvState
{
	/** As it was opened; empty if nothing is open. */
	std::string Url;

	/** The container's title, or the file's name. */
	std::string Title;

	/** Decoding has begun: length and size are known. */
	bool bLoaded = false;

	/** Paused on request; waiting for data is not pausing. */
	bool bPaused = false;

	/** Waits for data. */
	bool bBuffering = false;

	/** Seeking. */
	bool bSeeking = false;

	/** At the end. */
	bool bEnded = false;

	bool bSeekable = false;

	/** Seconds; the duration is 0 if unknown (live). */
	double Position = 0.0;
	double Duration = 0.0;
	/** How far the file has been read or received, in seconds from the start. */
	double BufferedTo = 0.0;

	/** Times normal speed. */
	double Speed = 1.0;

	/** Percent, 100 is the file's own loudness. */
	double Volume = 100.0;
	bool bMuted = false;

	/** The picture in square pixels, before it is rotated; 0 if there is none. */
	int Width = 0;
	int Height = 0;
	/** Degrees clockwise by which it is rotated when displayed. */
	int Rotation = 0;

	/** Of the sound as decoded, in hertz; 0 if there is none. */
	int SampleRate = 0;

	/** The hardware decoder in use; "no" or empty for none. */
	std::string HardwareDecoder;

	bool operator==(const FMpvState&) const = default;
};

} // namespace Flitmark
