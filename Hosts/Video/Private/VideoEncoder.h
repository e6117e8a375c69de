#pragma once

#include "CoreTypes.h"
#include "AvHandles.h"

#include <map>
#include <optional>
#include <string>

namespace Flitmark
{

/** Settings of an encoder. */
struct FEncoderSetup
{
	const AVCodec* Codec = nullptr;
	std::optional<double> Crf;
	std::string Preset;
	int32 Threads = 0;
	AVPixelFormat Format = AV_PIX_FMT_NONE;
	AVRational TimeBase{1, 1};

	/** 0/1 if unknown. */
	AVRational FrameRate{0, 1};
	AVRational PixelAspect{0, 1};
	AVFieldOrder FieldOrder = AV_FIELD_UNKNOWN;

	/** Whether the container stores the codec's headers separately from the packets. */
	bool bGlobalHeader = false;

	/** Whether every frame is to be encoded without regard to others. */
	bool bEachAlone = false;
};

/** The pixel formats on the way to the encoder. */
struct FFormatPlan
{
	/** The format frames are painted in and the one the encoder accepts; usually the same. */
	AVPixelFormat Paint = AV_PIX_FMT_NONE;
	AVPixelFormat Encode = AV_PIX_FMT_NONE;

	static FFormatPlan For(const AVCodec& InCodec, AVPixelFormat InSource);
};

/** A video encoder; its packets have the times and durations of the frames sent to it. */
class FVideoEncoder
{
public:
	/** InFirst: a frame as it will be sent, for size and color tags. Null with OutError set if it cannot start. */
	static std::unique_ptr<FVideoEncoder> Open(const FEncoderSetup& InSetup, const AVFrame& InFirst,
											   std::string& OutError);

	/** Whether it encodes the two fields of interlaced frames as such; others mark such frames as progressive. */
	static bool KeepsFields(const AVCodec& InCodec);

	const AVCodecContext& Context() const { return *Codec; }

	/** Takes a frame (null at the end); then call Receive until it returns nothing. False with OutError set on failure. */
	bool Send(AVFrame* InFrame, std::string& OutError);

	/** The next packet; false if there is none for now, with OutError set if the encoder failed. */
	bool Receive(AVPacket& OutPacket, std::string& OutError);

private:
	explicit FVideoEncoder(FCodecPtr InCodec)
		: Codec(std::move(InCodec))
	{
	}

	FCodecPtr Codec;

	/** Durations of the frames inside the encoder, by time; encoders do not pass them on. */
	std::map<int64, int64> Durations;
};

} // namespace Flitmark
