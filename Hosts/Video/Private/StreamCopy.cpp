#include "StreamCopy.h"

extern "C"
{
#include <libavutil/avstring.h>
#include <libavutil/dict.h>
}

#include <algorithm>
#include <cstring>
#include <new>
#include <string_view>

namespace Flitmark
{

namespace
{

/** Tags that the container writes itself, or that describe what the burn changes. */
constexpr const char* StaleTags[] = {
	"major_brand", "minor_version",	   "compatible_brands", "encoder",	   "duration",
	"bps",		   "number_of_frames", "number_of_bytes",	"_statistics", "alpha_mode",
};

bool IsStale(const char* InName)
{
	return std::any_of(std::begin(StaleTags), std::end(StaleTags),
					   [InName](const char* InStale)
					   { return av_strncasecmp(InName, InStale, std::strlen(InStale)) == 0; });
}

/** Whether side data of a video stream remains valid for its new encoding. */
bool StaysTrue(AVPacketSideDataType InType)
{
	switch (InType)
	{
	case AV_PKT_DATA_DISPLAYMATRIX:
	case AV_PKT_DATA_STEREO3D:
	case AV_PKT_DATA_SPHERICAL:
	case AV_PKT_DATA_MASTERING_DISPLAY_METADATA:
	case AV_PKT_DATA_CONTENT_LIGHT_LEVEL:
		return true;
	default:
		return false;
	}
}

void AddSideData(AVStream& InTarget, AVPacketSideDataType InType, const uint8* InData, size_t InSize)
{
	uint8* const Data = av_stream_new_side_data(&InTarget, InType, InSize);
	if (Data == nullptr)
	{
		throw std::bad_alloc();
	}
	std::memcpy(Data, InData, InSize);
}

/**
 * Whether a muxer writes an attachment into its header, found out by trying: tables of codecs leave out what is taken, and
 * some muxers say nothing and leave the attachment out.
 */
bool TakesAttachment(const AVOutputFormat& InContainer, const AVStream& InStream)
{
	AVFormatContext* Trial = nullptr;
	if (avformat_alloc_output_context2(&Trial, &InContainer, nullptr, nullptr) < 0 || avio_open_dyn_buf(&Trial->pb) < 0)
	{
		avformat_free_context(Trial);
		throw std::bad_alloc();
	}
	AVStream* const Copy = avformat_new_stream(Trial, nullptr);
	bool bTaken = Copy != nullptr && avcodec_parameters_copy(Copy->codecpar, InStream.codecpar) >= 0;
	if (bTaken)
	{
		Copy->codecpar->codec_tag = TagFor(*InStream.codecpar, InContainer);
		CopyStreamProperties(InStream, *Copy);
		bTaken = avformat_write_header(Trial, nullptr) >= 0;
	}
	uint8* Written = nullptr;
	const int Size = avio_close_dyn_buf(Trial->pb, &Written);
	const std::string_view Header(reinterpret_cast<const char*>(Written), static_cast<size_t>(std::max(0, Size)));
	const std::string_view Content(reinterpret_cast<const char*>(InStream.codecpar->extradata),
								   static_cast<size_t>(InStream.codecpar->extradata_size));
	bTaken = bTaken && Header.find(Content) != std::string_view::npos;
	av_free(Written);
	avformat_free_context(Trial);
	return bTaken;
}

} // namespace

std::string CopyObstacle(const AVStream& InStream, const AVOutputFormat& InContainer)
{
	const AVMediaType Kind = InStream.codecpar->codec_type;
	const char* const KindName = av_get_media_type_string(Kind);
	const std::string What =
		std::string(KindName != nullptr ? KindName : "data") + ", " + avcodec_get_name(InStream.codecpar->codec_id);
	if (Kind == AVMEDIA_TYPE_VIDEO)
	{
		return What + ": only one video stream is burned";
	}
	const bool bKind = Kind == AVMEDIA_TYPE_AUDIO || Kind == AVMEDIA_TYPE_SUBTITLE || Kind == AVMEDIA_TYPE_ATTACHMENT;
	const bool bHeld = Kind == AVMEDIA_TYPE_ATTACHMENT
						   ? TakesAttachment(InContainer, InStream)
						   : avformat_query_codec(&InContainer, InStream.codecpar->codec_id, FF_COMPLIANCE_NORMAL) != 0;
	if (!bKind || !bHeld)
	{
		return What + ": the container " + InContainer.name + " cannot hold it";
	}
	return {};
}

uint32 TagFor(const AVCodecParameters& InStream, const AVOutputFormat& InContainer)
{
	unsigned Unused = 0;
	const bool bSame = InContainer.codec_tag == nullptr ||
					   av_codec_get_id(InContainer.codec_tag, InStream.codec_tag) == InStream.codec_id ||
					   av_codec_get_tag2(InContainer.codec_tag, InStream.codec_id, &Unused) == 0;
	return bSame ? InStream.codec_tag : 0;
}

void CopyMetadata(const AVDictionary* InSource, AVDictionary*& InTarget)
{
	const AVDictionaryEntry* Entry = nullptr;
	while ((Entry = av_dict_get(InSource, "", Entry, AV_DICT_IGNORE_SUFFIX)) != nullptr)
	{
		if (!IsStale(Entry->key))
		{
			av_dict_set(&InTarget, Entry->key, Entry->value, 0);
		}
	}
}

void CopyStreamProperties(const AVStream& InSource, AVStream& InTarget)
{
	const bool bVideo = InSource.codecpar->codec_type == AVMEDIA_TYPE_VIDEO;
	InTarget.time_base = InSource.time_base;
	InTarget.disposition = InSource.disposition;
	CopyMetadata(InSource.metadata, InTarget.metadata);
	for (int Index = 0; Index < InSource.nb_side_data; ++Index)
	{
		const AVPacketSideData& Data = InSource.side_data[Index];
		if (!bVideo || StaysTrue(Data.type))
		{
			AddSideData(InTarget, Data.type, Data.data, Data.size);
		}
	}
}

void CopyLight(const AVFrame& InSource, AVStream& InTarget)
{
	constexpr std::pair<AVFrameSideDataType, AVPacketSideDataType> Kinds[] = {
		{AV_FRAME_DATA_MASTERING_DISPLAY_METADATA, AV_PKT_DATA_MASTERING_DISPLAY_METADATA},
		{AV_FRAME_DATA_CONTENT_LIGHT_LEVEL, AV_PKT_DATA_CONTENT_LIGHT_LEVEL},
	};
	for (const auto& [InFrame, InStream] : Kinds)
	{
		const AVFrameSideData* const Data = av_frame_get_side_data(&InSource, InFrame);
		if (Data != nullptr && av_stream_get_side_data(&InTarget, InStream, nullptr) == nullptr)
		{
			AddSideData(InTarget, InStream, Data->data, Data->size);
		}
	}
}

void AddChapter(AVFormatContext& InTarget, const AVChapter& InSource, int64 InStart, int64 InEnd)
{
	// FFmpeg frees these with the context, so they must be its own memory.
	AVChapter* const Chapter = static_cast<AVChapter*>(av_mallocz(sizeof(AVChapter)));
	int Count = static_cast<int>(InTarget.nb_chapters);
	if (Chapter == nullptr || av_dynarray_add_nofree(&InTarget.chapters, &Count, Chapter) < 0)
	{
		av_free(Chapter);
		throw std::bad_alloc();
	}
	InTarget.nb_chapters = static_cast<unsigned>(Count);
	Chapter->id = InSource.id;
	Chapter->time_base = InSource.time_base;
	Chapter->start = InStart;
	Chapter->end = InEnd;
	av_dict_copy(&Chapter->metadata, InSource.metadata, 0);
}

bool MoveToZero(AVPacket& InPacket, int64 InZero, bool bInCutBefore, AVMediaType InKind)
{
	const int64 Stamp = InPacket.pts != AV_NOPTS_VALUE ? InPacket.pts : InPacket.dts;
	if (bInCutBefore && Stamp != AV_NOPTS_VALUE && Stamp < InZero)
	{
		if (InKind != AVMEDIA_TYPE_SUBTITLE || Stamp + InPacket.duration <= InZero)
		{
			return false;
		}
		InPacket.duration -= InZero - Stamp;
		InPacket.pts = InZero;
		InPacket.dts = InZero;
	}
	InPacket.pts -= InPacket.pts != AV_NOPTS_VALUE ? InZero : 0;
	InPacket.dts -= InPacket.dts != AV_NOPTS_VALUE ? InZero : 0;
	return true;
}

} // namespace Flitmark
