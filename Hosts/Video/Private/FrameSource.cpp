#include "FrameSource.h"

namespace Flitmark
{

namespace
{

/** Whether decoding after a seek yields a frame at or before InTicks first. */
bool SeekReaches(const std::string& InPath, int64 InTicks)
{
	std::string Ignored;
	const auto Input = FVideoInput::Open(InPath, Ignored);
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

std::unique_ptr<FVideoInput> OpenVideoAt(const std::string& InPath, int64 InTicks, std::string& OutError)
{
	auto Input = FVideoInput::Open(InPath, OutError);
	if (Input && InTicks > 0 && SeekReaches(InPath, InTicks))
	{
		Input->Seek(Input->ToTimestamp(InTicks));
	}
	return Input;
}

} // namespace Flitmark
