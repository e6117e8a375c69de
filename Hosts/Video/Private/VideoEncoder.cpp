#include "VideoEncoder.h"

#include "AlphaLayout.h"
#include "AvErrors.h"
#include "PixelLayout.h"

extern "C"
{
#include <libavutil/dict.h>
}

#include <algorithm>
#include <cstdio>
#include <new>
#include <string_view>

namespace Flitmark
{

namespace
{

/** More than any encoder's lookahead. */
constexpr size_t MostFramesInside = 1024;

bool Takes(const AVCodec& InCodec, AVPixelFormat InFormat)
{
	for (const AVPixelFormat* Each = InCodec.pix_fmts; Each != nullptr && *Each != AV_PIX_FMT_NONE; ++Each)
	{
		if (*Each == InFormat)
		{
			return true;
		}
	}
	return InCodec.pix_fmts == nullptr;
}

/** Options passed to the encoder by name; unknown ones stay in the dictionary. */
AVDictionary* OptionsOf(const FEncoderSetup& InSetup)
{
	AVDictionary* Options = nullptr;
	if (InSetup.Crf)
	{
		char Text[32];
		snprintf(Text, sizeof(Text), "%g", *InSetup.Crf);
		av_dict_set(&Options, "crf", Text, 0);
	}
	if (!InSetup.Preset.empty())
	{
		av_dict_set(&Options, "preset", InSetup.Preset.c_str(), 0);
	}
	if (std::string(InSetup.Codec->name) == "libvpx-vp9")
	{
		// Its own defaults take one thread and several seconds for a second of video.
		av_dict_set(&Options, "row-mt", "1", 0);
		av_dict_set(&Options, "cpu-used", "4", 0);
	}
	if (std::string(InSetup.Codec->name) == "libx265")
	{
		// It writes to the terminal, bypassing FFmpeg's log, and has no other way to set the number of threads.
		std::string Parameters = "log-level=error";
		Parameters += InSetup.Threads > 0 ? ":pools=" + std::to_string(InSetup.Threads) : "";
		av_dict_set(&Options, "x265-params", Parameters.c_str(), 0);
	}
	return Options;
}

void Configure(AVCodecContext& InCodec, const FEncoderSetup& InSetup, const AVFrame& InFirst)
{
	InCodec.width = InFirst.width;
	InCodec.height = InFirst.height;
	InCodec.pix_fmt = InSetup.Format;
	InCodec.time_base = InSetup.TimeBase;
	InCodec.framerate = InSetup.FrameRate;
	InCodec.sample_aspect_ratio = InSetup.PixelAspect;
	InCodec.field_order = InSetup.FieldOrder;
	const bool bFields = InFirst.interlaced_frame != 0 && FVideoEncoder::KeepsFields(*InSetup.Codec);
	InCodec.flags |= bFields ? AV_CODEC_FLAG_INTERLACED_DCT | AV_CODEC_FLAG_INTERLACED_ME : 0;
	InCodec.color_range = InFirst.color_range;
	InCodec.color_primaries = InFirst.color_primaries;
	InCodec.color_trc = InFirst.color_trc;
	InCodec.colorspace = InFirst.colorspace;
	InCodec.chroma_sample_location = InFirst.chroma_location;
	// The only way to get limited range in Motion JPEG; players know the marker.
	InCodec.strict_std_compliance = FF_COMPLIANCE_UNOFFICIAL;
	InCodec.thread_count = std::max(0, InSetup.Threads);
	InCodec.gop_size = InSetup.bEachAlone ? 1 : InCodec.gop_size;
	InCodec.flags |= InSetup.bGlobalHeader ? AV_CODEC_FLAG_GLOBAL_HEADER : 0;
}

} // namespace

FFormatPlan FFormatPlan::For(const AVCodec& InCodec, AVPixelFormat InSource)
{
	const AVPixelFormat Plain = WithoutImpliedRange(InSource);
	if (HasAlpha(Plain))
	{
		const bool bTakes = FAlphaLayout::Of(Plain) && Takes(InCodec, Plain);
		const AVPixelFormat Kept = bTakes ? Plain : FAlphaLayout::Nearest(Plain, InCodec.pix_fmts);
		if (Kept != AV_PIX_FMT_NONE)
		{
			return {Kept, Kept};
		}
	}
	if (FPixelLayout::Of(Plain) && Takes(InCodec, Plain))
	{
		return {Plain, Plain};
	}
	const AVPixelFormat Shared =
		InCodec.pix_fmts != nullptr ? FPixelLayout::Nearest(Plain, InCodec.pix_fmts) : FPixelLayout::Nearest(Plain);
	if (Shared != AV_PIX_FMT_NONE)
	{
		return {Shared, Shared};
	}
	const AVPixelFormat Paint = FPixelLayout::Nearest(Plain);
	return {Paint, avcodec_find_best_pix_fmt_of_list(InCodec.pix_fmts, Paint, 0, nullptr)};
}

bool FVideoEncoder::KeepsFields(const AVCodec& InCodec)
{
	constexpr std::string_view Keepers[] = {"libx264", "libx264rgb", "mpeg2video", "mpeg4", "prores_ks"};
	return std::find(std::begin(Keepers), std::end(Keepers), InCodec.name) != std::end(Keepers);
}

std::unique_ptr<FVideoEncoder> FVideoEncoder::Open(const FEncoderSetup& InSetup, const AVFrame& InFirst,
												   std::string& OutError)
{
	FCodecPtr Codec(avcodec_alloc_context3(InSetup.Codec));
	if (!Codec)
	{
		throw std::bad_alloc();
	}
	Configure(*Codec, InSetup, InFirst);
	AVDictionary* Options = OptionsOf(InSetup);
	FAvLog::Start();
	int Code = 0;
	{
		const FStrayOutput Stray;
		Code = avcodec_open2(Codec.get(), InSetup.Codec, &Options);
	}
	const AVDictionaryEntry* const Unknown = av_dict_get(Options, "", nullptr, AV_DICT_IGNORE_SUFFIX);
	const std::string UnknownName = Unknown != nullptr ? Unknown->key : "";
	av_dict_free(&Options);
	if (Code < 0)
	{
		OutError = std::string("the encoder ") + InSetup.Codec->name + " cannot be started: " + FAvLog::Explain(Code) +
				   ((InSetup.Codec->capabilities & AV_CODEC_CAP_HARDWARE) != 0
						? "; it needs a device, which is missing or may not be used; choose another codec"
						: "; check the codec, quality, and preset, and that there is enough memory");
		return nullptr;
	}
	if (!UnknownName.empty())
	{
		OutError = std::string("the encoder ") + InSetup.Codec->name + " has no setting \"" + UnknownName +
				   "\"; leave it out or choose another codec";
		return nullptr;
	}
	return std::unique_ptr<FVideoEncoder>(new FVideoEncoder(std::move(Codec)));
}

bool FVideoEncoder::Send(AVFrame* InFrame, std::string& OutError)
{
	if (InFrame != nullptr)
	{
		// The source's frame types must not become requests to the encoder.
		InFrame->pict_type = AV_PICTURE_TYPE_NONE;
		if (InFrame->pkt_duration > 0)
		{
			Durations.emplace(InFrame->pts, InFrame->pkt_duration);
		}
		// Frames dropped by an encoder never come back.
		if (Durations.size() > MostFramesInside)
		{
			Durations.erase(Durations.begin());
		}
	}
	const int Code = avcodec_send_frame(Codec.get(), InFrame);
	if (Code < 0)
	{
		OutError = std::string("the encoder ") + Codec->codec->name + " failed: " + FAvLog::Explain(Code);
	}
	return Code >= 0;
}

bool FVideoEncoder::Receive(AVPacket& OutPacket, std::string& OutError)
{
	const int Code = avcodec_receive_packet(Codec.get(), &OutPacket);
	if (Code < 0)
	{
		if (Code != AVERROR(EAGAIN) && Code != AVERROR_EOF)
		{
			OutError = std::string("the encoder ") + Codec->codec->name + " failed: " + FAvLog::Explain(Code);
		}
		return false;
	}
	if (const auto Found = Durations.find(OutPacket.pts); Found != Durations.end())
	{
		OutPacket.duration = Found->second;
		Durations.erase(Found);
	}
	return true;
}

} // namespace Flitmark
