#include "VideoOutput.h"

#include "AvErrors.h"
#include "EncoderChoice.h"
#include "StreamCopy.h"

extern "C"
{
#include <libavutil/dict.h>
}

#include <algorithm>
#include <new>
#include <string_view>
#include <utility>

namespace Flitmark
{

std::unique_ptr<FVideoOutput> FVideoOutput::Open(const std::string& InPath, const AVCodec& InCodec,
												 std::string& OutError)
{
	const AVOutputFormat* const Container = av_guess_format(nullptr, InPath.c_str(), nullptr);
	if (Container == nullptr || (Container->flags & AVFMT_NOFILE) != 0)
	{
		OutError = InPath + ": its extension is not a video container; use .mp4, .mkv, .mov or .webm";
		return nullptr;
	}
	if (avformat_query_codec(Container, InCodec.id, FF_COMPLIANCE_NORMAL) == 0)
	{
		OutError = InPath + ": the container " + Container->name + " cannot hold " + avcodec_get_name(InCodec.id) +
				   " video; " + OtherContainers(InCodec, *Container);
		return nullptr;
	}
	auto File = FTemporaryFile::Create(InPath, OutError);
	if (!File)
	{
		return nullptr;
	}
	std::unique_ptr<FVideoOutput> Output(new FVideoOutput(std::move(File), InPath));
	const std::string Url = "file:" + Output->File->Path();
	FAvLog::Start();
	int Code = avformat_alloc_output_context2(&Output->Muxer, Container, nullptr, Url.c_str());
	Code = Code < 0 ? Code : avio_open(&Output->Muxer->pb, Url.c_str(), AVIO_FLAG_WRITE);
	if (Code < 0)
	{
		OutError = Output->WriteError(Code);
		return nullptr;
	}
	return Output;
}

FVideoOutput::FVideoOutput(std::unique_ptr<FTemporaryFile> InFile, std::string InPath)
	: File(std::move(InFile))
	, Path(std::move(InPath))
{
}

FVideoOutput::~FVideoOutput()
{
	if (Muxer != nullptr)
	{
		avio_closep(&Muxer->pb);
		avformat_free_context(Muxer);
	}
}

std::string FVideoOutput::WriteError(int InCode) const
{
	return Path + ": cannot be written: " + FAvLog::Explain(InCode) +
		   (InCode == AVERROR(ENOSPC) ? "; free some space and try again" : "");
}

void FVideoOutput::ChooseCopies(FVideoInput& InInput, std::vector<std::string>& OutMessages)
{
	AVFormatContext& Source = InInput.Format();
	Chosen.assign(Source.nb_streams, false);
	for (unsigned Index = 0; Index < Source.nb_streams; ++Index)
	{
		AVStream& Stream = *Source.streams[Index];
		if (&Stream == &InInput.Video())
		{
			continue;
		}
		const std::string Obstacle = CopyObstacle(Stream, *Muxer->oformat);
		Chosen[Index] = Obstacle.empty();
		if (!Obstacle.empty())
		{
			Stream.discard = AVDISCARD_ALL;
			OutMessages.push_back("stream " + std::to_string(Index) + " (" + Obstacle + ") is dropped");
		}
	}
	if (const std::string Obstacle = RotationObstacle(InInput); !Obstacle.empty())
	{
		OutMessages.push_back(Obstacle);
	}
}

std::string FVideoOutput::RotationObstacle(const FVideoInput& InInput) const
{
	const FOrientation Orientation = InInput.Orientation();
	const bool bTurned = Orientation.bTranspose || Orientation.bFlipX || Orientation.bFlipY;
	constexpr std::string_view QuickTimeFamily[] = {"mov", "mp4", "ipod", "3gp", "3g2", "psp", "ismv", "f4v"};
	const bool bHolds = std::find(std::begin(QuickTimeFamily), std::end(QuickTimeFamily), Muxer->oformat->name) !=
						std::end(QuickTimeFamily);
	return !bTurned || bHolds ? std::string()
							  : std::string("the container ") + Muxer->oformat->name +
									" cannot store rotation, so players will show the video sideways; use .mp4 or .mov";
}

void FVideoOutput::AddCopy(const AVStream& InSource)
{
	AVStream* const Target = avformat_new_stream(Muxer, nullptr);
	if (Target == nullptr || avcodec_parameters_copy(Target->codecpar, InSource.codecpar) < 0)
	{
		throw std::bad_alloc();
	}
	Target->codecpar->codec_tag = TagFor(*InSource.codecpar, *Muxer->oformat);
	CopyStreamProperties(InSource, *Target);
	Copies[static_cast<size_t>(InSource.index)] = Target;
}

void FVideoOutput::AddVideo(const AVStream& InSource, const AVCodecContext& InEncoder, const AVFrame& InFirst)
{
	Video = avformat_new_stream(Muxer, nullptr);
	if (Video == nullptr || avcodec_parameters_from_context(Video->codecpar, &InEncoder) < 0)
	{
		throw std::bad_alloc();
	}
	CopyStreamProperties(InSource, *Video);
	CopyLight(InFirst, *Video);
	Video->sample_aspect_ratio = InEncoder.sample_aspect_ratio;
	Video->avg_frame_rate = InSource.avg_frame_rate;
	Video->r_frame_rate = InSource.r_frame_rate;
}

void FVideoOutput::CopyChapters(const AVFormatContext& InSource)
{
	for (unsigned Index = 0; Index < InSource.nb_chapters; ++Index)
	{
		const AVChapter& Chapter = *InSource.chapters[Index];
		const int64 Zero = av_rescale_q(Cut.Zero, VideoBase, Chapter.time_base);
		const int64 Last = Cut.Seconds ? static_cast<int64>(*Cut.Seconds / av_q2d(Chapter.time_base)) : INT64_MAX;
		const int64 Start = std::max<int64>(0, Chapter.start - Zero);
		const int64 End = std::min(Last, Chapter.end - Zero);
		if (Start < End)
		{
			AddChapter(*Muxer, Chapter, Start, End);
		}
	}
}

void FVideoOutput::KeepTimes(int64 InFirst)
{
	// Matroska has no times before 0, so FFmpeg would shift all streams. Only audio that an encoder put before the
	// beginning as priming has such times, and it is not heard.
	const std::string_view Container = Muxer->oformat->name;
	if ((Container == "matroska" || Container == "webm") && InFirst >= Cut.Zero)
	{
		Muxer->avoid_negative_ts = AVFMT_AVOID_NEG_TS_DISABLED;
		Cut.bCutBefore = true;
		bWarmUpApart = true;
	}
}

int64 FVideoOutput::ZeroOf(const AVStream& InTarget, AVRational InBase) const
{
	// Matroska stores Opus priming in a field that readers subtract from the stream's times.
	const AVCodecParameters& Codec = *InTarget.codecpar;
	const int64 WarmUp = bWarmUpApart && Codec.codec_id == AV_CODEC_ID_OPUS
							 ? av_rescale_q(Codec.initial_padding, {1, 48000}, InBase)
							 : 0;
	return av_rescale_q(Cut.Zero, VideoBase, InBase) - WarmUp;
}

bool FVideoOutput::Start(const FVideoInput& InInput, const AVCodecContext& InEncoder, const AVFrame& InFirst,
						 const FOutputCut& InCut, std::string& OutError)
{
	const AVFormatContext& Source = InInput.Format();
	Cut = InCut;
	VideoBase = InInput.Video().time_base;
	Copies.assign(Source.nb_streams, nullptr);
	for (unsigned Index = 0; Index < Source.nb_streams; ++Index)
	{
		const AVStream& Stream = *Source.streams[Index];
		Bases.push_back(Stream.time_base);
		if (&Stream == &InInput.Video())
		{
			AddVideo(Stream, InEncoder, InFirst);
		}
		else if (Chosen[Index])
		{
			AddCopy(Stream);
		}
	}
	CopyMetadata(Source.metadata, Muxer->metadata);
	CopyChapters(Source);
	KeepTimes(InFirst.pts);
	return WriteHeader(OutError);
}

bool FVideoOutput::Start(const AVCodecContext& InEncoder, std::string& OutError)
{
	VideoBase = InEncoder.time_base;
	Video = avformat_new_stream(Muxer, nullptr);
	if (Video == nullptr || avcodec_parameters_from_context(Video->codecpar, &InEncoder) < 0)
	{
		throw std::bad_alloc();
	}
	Video->time_base = VideoBase;
	Video->sample_aspect_ratio = InEncoder.sample_aspect_ratio;
	Video->avg_frame_rate = InEncoder.framerate;
	Video->r_frame_rate = InEncoder.framerate;
	return WriteHeader(OutError);
}

bool FVideoOutput::WriteHeader(std::string& OutError)
{
	LastDts.assign(Muxer->nb_streams, AV_NOPTS_VALUE);
	FAvLog::Start();
	// MP4 rounds the start of a stream to this clock, which is a millisecond by default.
	AVDictionary* Settings = nullptr;
	av_dict_set_int(&Settings, "movie_timescale", std::max(1000, VideoBase.den), 0);
	const int Code = avformat_write_header(Muxer, &Settings);
	av_dict_free(&Settings);
	if (Code < 0)
	{
		OutError = WriteError(Code) + "; another container, such as .mkv, may take these streams";
	}
	return Code >= 0;
}

bool FVideoOutput::Write(AVPacket& InPacket, AVRational InBase, AVStream& InTarget, std::string& OutError)
{
	av_packet_rescale_ts(&InPacket, InBase, InTarget.time_base);
	InPacket.stream_index = InTarget.index;
	InPacket.pos = -1;
	// Containers reject times that run backward, which damaged inputs contain.
	int64& Last = LastDts[static_cast<size_t>(InTarget.index)];
	if (InPacket.dts != AV_NOPTS_VALUE)
	{
		const int64 Least = Last + ((Muxer->oformat->flags & AVFMT_TS_NONSTRICT) != 0 ? 0 : 1);
		if (Last != AV_NOPTS_VALUE && InPacket.dts < Least)
		{
			InPacket.dts = Least;
			InPacket.pts = std::max(InPacket.pts, Least);
		}
		Last = InPacket.dts;
	}
	const int Code = av_interleaved_write_frame(Muxer, &InPacket);
	if (Code < 0)
	{
		OutError = WriteError(Code);
	}
	return Code >= 0;
}

bool FVideoOutput::WriteVideo(AVPacket& InPacket, std::string& OutError)
{
	InPacket.pts -= Cut.Zero;
	InPacket.dts -= InPacket.dts != AV_NOPTS_VALUE ? Cut.Zero : 0;
	return Write(InPacket, VideoBase, *Video, OutError);
}

bool FVideoOutput::WriteCopy(AVPacket& InPacket, std::string& OutError)
{
	const size_t Index = static_cast<size_t>(InPacket.stream_index);
	AVStream* const Target = Index < Copies.size() ? Copies[Index] : nullptr;
	if (Target == nullptr ||
		!MoveToZero(InPacket, ZeroOf(*Target, Bases[Index]), Cut.bCutBefore, Target->codecpar->codec_type))
	{
		return true;
	}
	return Write(InPacket, Bases[Index], *Target, OutError);
}

bool FVideoOutput::Finish(std::string& OutError)
{
	FAvLog::Start();
	int Code = av_write_trailer(Muxer);
	avio_flush(Muxer->pb);
	Code = Code >= 0 && Muxer->pb->error < 0 ? Muxer->pb->error : Code;
	const int CloseCode = avio_closep(&Muxer->pb);
	Code = Code >= 0 ? CloseCode : Code;
	if (Code < 0)
	{
		OutError = WriteError(Code);
		return false;
	}
	return File->Commit(OutError);
}

} // namespace Flitmark
