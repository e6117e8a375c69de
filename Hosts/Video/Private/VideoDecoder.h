#pragma once

#include "CoreTypes.h"
#include "AvHandles.h"
#include "VideoInput.h"

#include <string>

namespace Flitmark
{

/** The decoder of an input's video stream. Damaged packets are skipped and counted. */
class FVideoDecoder
{
public:
	/** Null with OutError set if there is no decoder for the stream. */
	static std::unique_ptr<FVideoDecoder> Open(const FVideoInput& InInput, int32 InThreads, std::string& OutError);

	/** Takes a packet (null at the end); afterwards, call Receive until it returns nothing. */
	void Send(const AVPacket* InPacket);

	/** The next frame in time order, with its pts set; false if the decoder needs another packet or is done. */
	bool Receive(AVFrame& OutFrame);

	int64 BrokenPackets() const { return Broken; }

private:
	explicit FVideoDecoder(FCodecPtr InCodec)
		: Codec(std::move(InCodec))
	{
	}
	void SetTimestamp(AVFrame& InFrame);

	FCodecPtr Codec;
	int64 Broken = 0;
	int64 NextTimestamp = 0;
};

} // namespace Flitmark
