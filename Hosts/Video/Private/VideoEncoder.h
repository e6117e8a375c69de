#pragma once

#include "CoreTypes.h"
#include "AvHandles.h"

#include <map>
#include <optional>
#include <string>

namespace Flitmark
{

/** What an encoder is to make. */
struct FEncoderSetup
{
	const AVCodec* Codec = nullptr;
	std::optional<double> Crf;
	std::string Preset;
	int32 Threads = 0;
	AVPixelFormat Format = AV_PIX_FMT_NONE;
	AVRational TimeBase{1, 1};

	/** 0/1 where unknown. */
	AVRational FrameRate{0, 1};
	AVRational PixelAspect{0, 1};
	AVFieldOrder FieldOrder = AV_FIELD_UNKNOWN;

	/** Whether the container wants the codec's headers apart from the packets. */
	bool bGlobalHeader = false;
};

/** The pixel formats on the way to an encoder. */
struct FFormatPlan
{
	/** In which frames are painted, and which the encoder takes; the same but for encoders that take only others. */
	AVPixelFormat Paint = AV_PIX_FMT_NONE;
	AVPixelFormat Encode = AV_PIX_FMT_NONE;

	static FFormatPlan For(const AVCodec& InCodec, AVPixelFormat InSource);
};

/** A video encoder; gives packets with the times and durations of the frames it was sent. */
class FVideoEncoder
{
public:
	/** InFirst: a frame as it will be sent, for size and colour tags. Null with OutError set where it cannot start. */
	static std::unique_ptr<FVideoEncoder> Open(const FEncoderSetup& InSetup, const AVFrame& InFirst,
											   std::string& OutError);

	const AVCodecContext& Context() const { return *Codec; }

	/** Takes a frame (null: there are no more); after it, Receive until it gives nothing. False with OutError set. */
	bool Send(AVFrame* InFrame, std::string& OutError);

	/** The next packet; false where there is none for now, with OutError set where the encoder failed. */
	bool Receive(AVPacket& OutPacket, std::string& OutError);

private:
	explicit FVideoEncoder(FCodecPtr InCodec)
		: Codec(std::move(InCodec))
	{
	}

	FCodecPtr Codec;

	/** Durations of the frames inside the encoder by their times; encoders don't hand them through. */
	std::map<int64, int64> Durations;
};

} // namespace Flitmark
