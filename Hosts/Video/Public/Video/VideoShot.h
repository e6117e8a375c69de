#pragma once

#include "CoreTypes.h"
#include "Video/OverlaySource.h"
#include "Video/VideoResult.h"

#include <string>

namespace Flitmark
{

/** Which frame to save as a picture. */
struct FShotOptions
{
	std::string Input;

	/** See FVideoFile. */
	bool bAllowPlaylists = false;

	/** The picture; always PNG, whatever its name. Appears only once complete. */
	std::string Output;

	/** Seconds of media time, 0 or more: the frame shown then. */
	double At = 0.0;

	/** Threads for the decoder; 0 lets it decide. */
	int32 Threads = 0;
};

/**
 * Paints one frame of the video with its comments, the same pixels as a burn passes to its encoder, and writes it as an
 * 8-bit RGB picture: upright, in stored pixels (where those are not square, the picture says so in its pHYs chunk).
 */
FVideoResult Shot(const FShotOptions& InOptions, IOverlaySource& InOverlay);

} // namespace Flitmark
