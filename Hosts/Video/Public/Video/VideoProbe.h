#pragma once

#include "Video/OverlaySource.h"
#include "Video/VideoFile.h"

#include <optional>
#include <string>

namespace Flitmark
{

/** What a video file says about itself. */
struct FVideoInfo
{
	FVideoShape Shape;

	/** Seconds; 0 if the file does not say. */
	double DurationSeconds = 0.0;

	/** Seconds on the file's own clock at which it starts; media time counts from here. */
	double StartSeconds = 0.0;

	/** FFmpeg's names of the codec and of the pixel format. */
	std::string Codec;
	std::string PixelFormat;
};

/** Reads a video's properties without decoding it; empty with OutError set if it cannot be read or has no video. */
std::optional<FVideoInfo> Probe(const FVideoFile& InFile, std::string& OutError);

} // namespace Flitmark
