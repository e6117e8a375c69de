#include "Video/VideoProbe.h"

#include "Files/ExceptionText.h"
#include "VideoInput.h"

extern "C"
{
#include <libavutil/pixdesc.h>
}

#include <exception>

namespace Flitmark
{

std::optional<FVideoInfo> Probe(const FVideoFile& InFile, std::string& OutError)
try
{
	const auto Input = FVideoInput::Open(InFile, OutError);
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
	OutError = InFile.Path + ": cannot be read: " + ExplainException(Exception);
	return std::nullopt;
}

} // namespace Flitmark
