#include "BlankSaver.h"

#include <new>
#include <utility>

namespace Flitmark
{

FBlankSaver::FBlankSaver(FVideoEncoder& InEncoder, IOverlaySink& InSink, bool bInEachAlone, int64 InHold)
	: Encoder(InEncoder)
	, Sink(InSink)
	, bEachAlone(bInEachAlone)
	, Hold(InHold)
	, Packet(MakePacket())
{
}

bool FBlankSaver::Take(AVFrame& InFrame, bool bInBlank, std::string& OutError)
{
	if (bEachAlone)
	{
		if (bInBlank && bBlankSent)
		{
			Pending.push_back({InFrame.pts, InFrame.pkt_duration, true, true});
			return WriteRepeats(OutError);
		}
		return Encode(InFrame, bInBlank, OutError);
	}
	if (bInBlank)
	{
		return HoldBlank(InFrame, OutError);
	}
	Held.reset();
	LastBlank.reset();
	return Encode(InFrame, false, OutError);
}

bool FBlankSaver::HoldBlank(AVFrame& InFrame, std::string& OutError)
{
	Held.reset();
	if (!LastBlank || InFrame.pts - *LastBlank >= Hold)
	{
		LastBlank = InFrame.pts;
		return Encode(InFrame, true, OutError);
	}
	Held.reset(av_frame_clone(&InFrame));
	if (!Held)
	{
		throw std::bad_alloc();
	}
	return true;
}

bool FBlankSaver::Encode(AVFrame& InFrame, bool bInBlank, std::string& OutError)
{
	if (bEachAlone)
	{
		Pending.push_back({InFrame.pts, InFrame.pkt_duration, bInBlank, false});
		bBlankSent = bBlankSent || bInBlank;
	}
	return Encoder.Send(&InFrame, OutError) && Drain(OutError);
}

bool FBlankSaver::Drain(std::string& OutError)
{
	while (Encoder.Receive(*Packet, OutError))
	{
		if (!Pending.empty())
		{
			if (Pending.front().bBlank && !BlankPacket)
			{
				BlankPacket.reset(av_packet_clone(Packet.get()));
			}
			Pending.pop_front();
		}
		const bool bWritten = Sink.Write(*Packet, OutError);
		av_packet_unref(Packet.get());
		if (!bWritten || !WriteRepeats(OutError))
		{
			return false;
		}
	}
	return OutError.empty();
}

bool FBlankSaver::WriteRepeats(std::string& OutError)
{
	for (; !Pending.empty() && Pending.front().bRepeats; Pending.pop_front())
	{
		const FPacketPtr Copy(BlankPacket ? av_packet_clone(BlankPacket.get()) : nullptr);
		if (!Copy)
		{
			throw std::bad_alloc();
		}
		Copy->pts = Pending.front().Stamp;
		Copy->dts = Pending.front().Stamp;
		Copy->duration = Pending.front().Duration;
		if (!Sink.Write(*Copy, OutError))
		{
			return false;
		}
	}
	return true;
}

bool FBlankSaver::Finish(std::string& OutError)
{
	// The last frame says how long the video is.
	const FFramePtr Last = std::move(Held);
	return (!Last || Encode(*Last, true, OutError)) && Encoder.Send(nullptr, OutError) && Drain(OutError);
}

} // namespace Flitmark
