#include "VideoDecoder.h"

#include "AvErrors.h"
#include "EncoderChoice.h"

extern "C"
{
#include <libavutil/common.h>
}

#include <algorithm>
#include <new>

namespace Flitmark
{

namespace
{

const AVCodec* FindDecoder(const AVStream& InStream)
{
	// FFmpeg's own decoders of these leave the transparency out.
	const AVCodecID Kind = InStream.codecpar->codec_id;
	const char* const WithAlpha = !HasAlpha(InStream)		? nullptr
								  : Kind == AV_CODEC_ID_VP9 ? "libvpx-vp9"
								  : Kind == AV_CODEC_ID_VP8 ? "libvpx"
															: nullptr;
	const AVCodec* const Named = WithAlpha != nullptr ? avcodec_find_decoder_by_name(WithAlpha) : nullptr;
	return Named != nullptr ? Named : avcodec_find_decoder(Kind);
}

} // namespace

std::unique_ptr<FVideoDecoder> FVideoDecoder::Open(const FVideoInput& InInput, int32 InThreads, std::string& OutError)
{
	const AVStream& Stream = InInput.Video();
	const char* const Name = avcodec_get_name(Stream.codecpar->codec_id);
	const AVCodec* const Decoder = FindDecoder(Stream);
	if (Decoder == nullptr)
	{
		OutError = std::string(InInput.Format().url) + ": no decoder for its video (" + Name + ")";
		return nullptr;
	}
	FCodecPtr Codec(avcodec_alloc_context3(Decoder));
	if (!Codec)
	{
		throw std::bad_alloc();
	}
	int Code = avcodec_parameters_to_context(Codec.get(), Stream.codecpar);
	Codec->thread_count = std::max(0, InThreads);
	Codec->pkt_timebase = Stream.time_base;
	Codec->framerate = Stream.avg_frame_rate;
	FAvLog::Start();
	Code = Code < 0 ? Code : avcodec_open2(Codec.get(), Decoder, nullptr);
	if (Code < 0)
	{
		OutError = std::string("the decoder for ") + Name + " cannot be started: " + FAvLog::Explain(Code);
		return nullptr;
	}
	return std::unique_ptr<FVideoDecoder>(new FVideoDecoder(std::move(Codec)));
}

void FVideoDecoder::Send(const AVPacket* InPacket)
{
	const int Code = avcodec_send_packet(Codec.get(), InPacket);
	if (Code == AVERROR(ENOMEM))
	{
		throw std::bad_alloc();
	}
	Broken += Code < 0 && Code != AVERROR_EOF ? 1 : 0;
}

bool FVideoDecoder::Receive(AVFrame& OutFrame)
{
	while (true)
	{
		const int Code = avcodec_receive_frame(Codec.get(), &OutFrame);
		if (Code >= 0)
		{
			SetTimestamp(OutFrame);
			return true;
		}
		if (Code == AVERROR(ENOMEM))
		{
			throw std::bad_alloc();
		}
		if (Code == AVERROR(EAGAIN) || Code == AVERROR_EOF)
		{
			return false;
		}
		++Broken;
	}
}

void FVideoDecoder::SetTimestamp(AVFrame& InFrame)
{
	if (InFrame.best_effort_timestamp != AV_NOPTS_VALUE)
	{
		InFrame.pts = InFrame.best_effort_timestamp;
	}
	else if (InFrame.pts == AV_NOPTS_VALUE)
	{
		InFrame.pts = NextTimestamp;
	}
	NextTimestamp = av_sat_add64(InFrame.pts, std::max<int64>(1, InFrame.pkt_duration));
}

} // namespace Flitmark
