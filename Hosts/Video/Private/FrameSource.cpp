#include "FrameSource.h"

namespace Flitmark
{

namespace
{

/** Whether decoding after a seek yields a frame at or before InTicks first. */
bool SeekReaches(const FVideoFile& InFile, int64 InTicks, const std::atomic<bool>* InCancel)
{
	std::string Ignored;
	const auto Input = FVideoInput::Open(InFile, Ignored, InCancel);
	const auto Decoder = Input ? FVideoDecoder::Open(*Input, 1, Ignored) : nullptr;
	if (!Decoder || !Input->Seek(Input->ToTimestamp(InTicks)))
	{
		return false;
	}
	const FFramePtr Frame = MakeFrame();
	return FFrameSource(*Input, *Decoder).Next(*Frame) && Input->ToTicks(Frame->pts) <= InTicks;
}

} // namespace

FFrameSource::FFrameSource(FVideoInput& InInput, FVideoDecoder& InDecoder)
	: Input(InInput)
	, Decoder(InDecoder)
	, Packet(MakePacket())
{
	Input.ReadVideoOnly();
}

bool FFrameSource::Next(AVFrame& OutFrame)
{
	while (!Decoder.Receive(OutFrame))
	{
		if (bEnd)
		{
			return false;
		}
		bEnd = !Input.Read(*Packet);
		if (bEnd || Packet->stream_index == Input.Video().index)
		{
			Decoder.Send(bEnd ? nullptr : Packet.get());
		}
		av_packet_unref(Packet.get());
	}
	return true;
}

std::unique_ptr<FVideoInput> OpenVideoAt(const FVideoFile& InFile, int64 InTicks, std::string& OutError,
										 const std::atomic<bool>* InCancel)
{
	auto Input = FVideoInput::Open(InFile, OutError, InCancel);
	if (Input && InTicks > 0 && SeekReaches(InFile, InTicks, InCancel))
	{
		Input->Seek(Input->ToTimestamp(InTicks));
	}
	return Input;
}

} // namespace Flitmark
