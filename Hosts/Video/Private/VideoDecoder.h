#pragma once

#include "CoreTypes.h"
#include "AvHandles.h"
#include "VideoInput.h"

#include <string>

namespace Flitmark
{

/** The decoder of an input's video stream. Damaged packets are passed over and counted. */
class FVideoDecoder
{
public:
	/** Null with OutError set where there is no decoder for the stream. */
	static std::unique_ptr<FVideoDecoder> Open(const FVideoInput& InInput, int32 InThreads, std::string& OutError);

	/** Takes a packet (null: there are no more); after it, Receive until it gives nothing. */
	void Send(const AVPacket* InPacket);

	/** The next frame in order of time, its pts set; false where the decoder wants another packet or is done. */
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
