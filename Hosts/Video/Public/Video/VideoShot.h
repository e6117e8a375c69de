#pragma once

#include "CoreTypes.h"
#include "Video/OverlaySource.h"
#include "Video/VideoResult.h"

#include <string>

namespace Flitmark
{

/** Which frame is to be painted into a picture. */
struct FShotOptions
{
	std::string Input;

	/** The picture, PNG whatever its name. Appears only when whole. */
	std::string Output;

	/** Seconds of media time, 0 or more: the frame shown then. */
	double At = 0.0;

	/** Threads for the decoder; 0: as it sees fit. */
	int32 Threads = 0;
};

/**
 * Paints one frame of the video with its comments, the same pixels as a burn gives its encoder, and writes it as an
 * 8-bit RGB picture: upright, in stored pixels (where those are not square, the picture says so in its pHYs chunk).
 */
FVideoResult Shot(const FShotOptions& InOptions, IOverlaySource& InOverlay);

} // namespace Flitmark
