#include "Picture.h"

#include "AvErrors.h"
#include "FrameConverter.h"
#include "Files/TemporaryFile.h"

#include <cstring>
#include <new>
#include <string_view>
#include <utility>

namespace Flitmark
{

namespace
{

FFramePtr Upright(FFramePtr InPicture, const FOrientation& InOrientation)
{
	const AVFrame& Source = *InPicture;
	FFramePtr Turned = MakeFrame();
	Turned->format = Source.format;
	Turned->width = InOrientation.bTranspose ? Source.height : Source.width;
	Turned->height = InOrientation.bTranspose ? Source.width : Source.height;
	Turned->sample_aspect_ratio = Source.sample_aspect_ratio;
	if (InOrientation.bTranspose)
	{
		std::swap(Turned->sample_aspect_ratio.num, Turned->sample_aspect_ratio.den);
	}
	if (av_frame_get_buffer(Turned.get(), 0) < 0)
	{
		throw std::bad_alloc();
	}
	for (int32 Y = 0; Y < Turned->height; ++Y)
	{
		uint8* Target = Turned->data[0] + ptrdiff_t{Y} * Turned->linesize[0];
		for (int32 X = 0; X < Turned->width; ++X, Target += 3)
		{
			const auto [P, Q] = InOrientation.ToStored(X, Y, Source.width, Source.height);
			std::memcpy(Target, Source.data[0] + ptrdiff_t{Q} * Source.linesize[0] + ptrdiff_t{P} * 3, 3);
		}
	}
	return Turned;
}

/** The packet that holds the whole PNG; null with OutError set. */
FPacketPtr Encode(AVFrame& InPicture, std::string& OutError)
{
	const AVCodec* const Png = avcodec_find_encoder(AV_CODEC_ID_PNG);
	FCodecPtr Codec(Png != nullptr ? avcodec_alloc_context3(Png) : nullptr);
	if (!Codec)
	{
		OutError = "FFmpeg has no PNG encoder";
		return nullptr;
	}
	Codec->width = InPicture.width;
	Codec->height = InPicture.height;
	Codec->pix_fmt = AV_PIX_FMT_RGB24;
	Codec->time_base = {1, 1};
	Codec->sample_aspect_ratio = InPicture.sample_aspect_ratio;
	InPicture.pts = 0;
	FAvLog::Start();
	FPacketPtr Packet = MakePacket();
	int Code = avcodec_open2(Codec.get(), Png, nullptr);
	Code = Code < 0 ? Code : avcodec_send_frame(Codec.get(), &InPicture);
	Code = Code < 0 ? Code : avcodec_send_frame(Codec.get(), nullptr);
	Code = Code < 0 ? Code : avcodec_receive_packet(Codec.get(), Packet.get());
	if (Code < 0)
	{
		OutError = "the picture cannot be encoded: " + FAvLog::Explain(Code);
		return nullptr;
	}
	return Packet;
}

} // namespace

bool WritePicture(const AVFrame& InFrame, const FOrientation& InOrientation, const std::string& InPath,
				  std::string& OutError)
{
	FFramePtr Picture = FFrameConverter(AV_PIX_FMT_RGB24, InFrame.width, InFrame.height).Convert(InFrame);
	if (!Picture)
	{
		OutError = InPath + ": the frame cannot be converted to RGB";
		return false;
	}
	Picture = Upright(std::move(Picture), InOrientation);
	const FPacketPtr Packet = Encode(*Picture, OutError);
	const auto File = Packet ? FTemporaryFile::Create(InPath, OutError) : nullptr;
	if (!File)
	{
		return false;
	}
	const std::string_view Bytes(reinterpret_cast<const char*>(Packet->data), static_cast<size_t>(Packet->size));
	return File->Write(Bytes, OutError) && File->Commit(OutError);
}

} // namespace Flitmark
