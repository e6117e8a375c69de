#include "EncoderChoice.h"

#include "AlphaLayout.h"

extern "C"
{
#include <libavutil/dict.h>
}

#include <cstring>
#include <iterator>
#include <string_view>
#include <vector>

namespace Flitmark
{

namespace
{

/** The likeliest first. The quicker one of FFmpeg's two ProRes encoders: the other takes seven times as long. */
constexpr const char* UsualEncoders[] = {"libx264", "libvpx-vp9"};
constexpr const char* AlphaEncoders[] = {"prores_aw", "libvpx-vp9"};

constexpr const char* UsualContainers[] = {".mp4", ".mkv", ".mov", ".webm"};

bool Holds(const AVOutputFormat* InContainer, AVCodecID InCodec)
{
	return InContainer != nullptr && avformat_query_codec(InContainer, InCodec, FF_COMPLIANCE_NORMAL) == 1;
}

/** VP8 and VP9 are encoded without alpha; it is a second video that only Matroska has a place for. */
bool HoldsAlpha(const AVOutputFormat* InContainer, const AVCodec& InCodec)
{
	const bool bApart = InCodec.id == AV_CODEC_ID_VP8 || InCodec.id == AV_CODEC_ID_VP9;
	const std::string_view Name = InContainer != nullptr ? InContainer->name : "";
	return !bApart || Name == "matroska" || Name == "webm";
}

bool TakesAlpha(const AVCodec& InCodec)
{
	return FAlphaLayout::Nearest(AV_PIX_FMT_RGBA, InCodec.pix_fmts) != AV_PIX_FMT_NONE;
}

std::string Listed(const std::vector<std::string>& InNames)
{
	std::string Text;
	for (size_t Index = 0; Index < InNames.size(); ++Index)
	{
		Text += (Index == 0 ? "" : Index + 1 < InNames.size() ? ", " : " or ") + InNames[Index];
	}
	return Text;
}

/** The usual containers that a check finds fit. */
template <class CheckType>
std::vector<std::string> Containers(CheckType InCheck)
{
	std::vector<std::string> Names;
	for (const char* Name : UsualContainers)
	{
		if (InCheck(av_guess_format(nullptr, Name, nullptr)))
		{
			Names.push_back(Name);
		}
	}
	return Names;
}

const AVCodec* UsualEncoder(const AVOutputFormat* InContainer, bool bInAlpha)
{
	for (const char* Name : AlphaEncoders)
	{
		const AVCodec* const Codec = bInAlpha ? avcodec_find_encoder_by_name(Name) : nullptr;
		// Matroska can hold ProRes, but few players know it there.
		const bool bFits = Codec != nullptr && Holds(InContainer, Codec->id) && HoldsAlpha(InContainer, *Codec) &&
						   (Codec->id != AV_CODEC_ID_PRORES || std::strcmp(InContainer->name, "mov") == 0);
		if (bFits)
		{
			return Codec;
		}
	}
	for (const char* Name : UsualEncoders)
	{
		const AVCodec* const Codec = avcodec_find_encoder_by_name(Name);
		if (Codec != nullptr && Holds(InContainer, Codec->id))
		{
			return Codec;
		}
	}
	return InContainer != nullptr ? avcodec_find_encoder(InContainer->video_codec) : nullptr;
}

} // namespace

bool HasAlpha(const AVStream& InStream)
{
	const AVDictionaryEntry* const Apart = av_dict_get(InStream.metadata, "alpha_mode", nullptr, 0);
	return HasAlpha(static_cast<AVPixelFormat>(InStream.codecpar->format)) ||
		   (Apart != nullptr && std::strcmp(Apart->value, "1") == 0);
}

const AVCodec* ChooseEncoder(const std::string& InName, const std::string& InPath, bool bInAlpha, std::string& OutError)
{
	if (InName.empty())
	{
		const AVOutputFormat* const Container = av_guess_format(nullptr, InPath.c_str(), nullptr);
		const AVCodec* const Usual = UsualEncoder(Container, bInAlpha);
		if (Usual == nullptr)
		{
			OutError = InPath + ": its extension is not a video container; use .mp4, .mkv, .mov or .webm";
		}
		return Usual;
	}
	const AVCodec* const Named = avcodec_find_encoder_by_name(InName.c_str());
	if (Named == nullptr || Named->type != AVMEDIA_TYPE_VIDEO)
	{
		OutError = InName + ": no such video encoder; \"ffmpeg -encoders\" lists them";
		return nullptr;
	}
	return Named;
}

std::string AlphaObstacle(const AVCodec& InCodec, const std::string& InPath)
{
	const AVOutputFormat* const Container = av_guess_format(nullptr, InPath.c_str(), nullptr);
	if (!TakesAlpha(InCodec))
	{
		const AVCodec* const Better = UsualEncoder(Container, true);
		const bool bHere = Better != nullptr && TakesAlpha(*Better) && HoldsAlpha(Container, *Better);
		return std::string("the encoder ") + InCodec.name + " keeps no transparency; " +
			   (bHere ? std::string(Better->name) + " does" : ".mov with prores_aw and .webm with libvpx-vp9 do");
	}
	if (!HoldsAlpha(Container, InCodec))
	{
		return std::string("the container ") + (Container != nullptr ? Container->name : "") +
			   " has no place for the transparency of " + InCodec.name + "; " +
			   Listed(Containers([&InCodec](const AVOutputFormat* In)
								 { return Holds(In, InCodec.id) && HoldsAlpha(In, InCodec); })) +
			   " has";
	}
	return {};
}

std::string OtherContainers(const AVCodec& InCodec, const AVOutputFormat& InContainer)
{
	const std::vector<std::string> Names =
		Containers([&InCodec](const AVOutputFormat* In) { return Holds(In, InCodec.id); });
	const AVCodec* const Usual = UsualEncoder(&InContainer, false);
	return (Names.empty() ? std::string() : Listed(Names) + " can") + (Names.empty() || Usual == nullptr ? "" : "; ") +
		   (Usual == nullptr ? std::string() : "for " + std::string(InContainer.name) + ", use " + Usual->name);
}

} // namespace Flitmark
