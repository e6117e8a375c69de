#pragma once

#include "VideoDecoder.h"
#include "VideoInput.h"

#include <string>

namespace Flitmark
{

/** Decodes only an input's video stream. */
class FFrameSource
{
public:
	FFrameSource(FVideoInput& InInput, FVideoDecoder& InDecoder);

	/** False at the end of the video. */
	bool Next(AVFrame& OutFrame);

private:
	FVideoInput& Input;
	FVideoDecoder& Decoder;
	FPacketPtr Packet;
	bool bEnd = false;
};

/**
 * Opens a file at the last keyframe from which the frame shown at InTicks of media time can be decoded, or at the
 * beginning if seeking overshoots. Null with OutError set if the file cannot be read.
 */
std::unique_ptr<FVideoInput> OpenVideoAt(const FVideoFile& InFile, int64 InTicks, std::string& OutError,
										 const std::atomic<bool>* InCancel = nullptr);

} // namespace Flitmark
