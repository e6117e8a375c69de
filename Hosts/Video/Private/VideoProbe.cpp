#include "Video/VideoProbe.h"

#include "VideoInput.h"

extern "C"
{
#include <libavutil/pixdesc.h>
}

#include <exception>

namespace Flitmark
{

std::optional<FVideoInfo> Probe(const std::string& InPath, std::string& OutError)
try
{
	const auto Input = FVideoInput::Open(InPath, OutError);
	if (!Input)
	{
		return std::nullopt;
	}
	const AVCodecParameters& Parameters = *Input->Video().codecpar;
	const char* const Format = av_get_pix_fmt_name(static_cast<AVPixelFormat>(Parameters.format));
	const int64 Start = Input->Format().start_time;
	FVideoInfo Info;
	Info.Shape = Input->Shape();
	Info.DurationSeconds = Input->DurationSeconds();
	Info.StartSeconds = Start != AV_NOPTS_VALUE ? static_cast<double>(Start) / AV_TIME_BASE : 0.0;
	Info.Codec = avcodec_get_name(Parameters.codec_id);
	Info.PixelFormat = Format != nullptr ? Format : "";
	return Info;
}
catch (const std::exception& Exception)
{
	OutError = InPath + ": " + Exception.what();
	return std::nullopt;
}

} // namespace Flitmark
