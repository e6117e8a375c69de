#include "PacketReader.h"

#include <algorithm>
#include <new>
#include <utility>

namespace Flitmark
{

namespace
{

/** Enough that neither side waits for a slow frame of the other; each costs the memory of a picture. */
constexpr size_t FramesAhead = 4;
constexpr size_t ItemsAhead = 512;

} // namespace

FPacketReader::FPacketReader(FVideoInput& InInput, FVideoDecoder& InDecoder, const FReadRange& InRange)
	: Input(InInput)
	, Decoder(InDecoder)
	, Range(InRange)
	, PastEnd(InInput.Format().nb_streams, false)
	, Thread([this] { Run(); })
{
}

FPacketReader::~FPacketReader()
{
	{
		const std::lock_guard Lock(Mutex);
		bStop = true;
	}
	Changed.notify_all();
	Thread.join();
}

bool FPacketReader::Next(FReadItem& OutItem)
{
	std::unique_lock Lock(Mutex);
	Changed.wait(Lock, [this] { return !Items.empty() || bEnd; });
	if (Items.empty())
	{
		if (Failure)
		{
			std::rethrow_exception(std::exchange(Failure, nullptr));
		}
		return false;
	}
	OutItem = std::move(Items.front());
	Items.pop_front();
	Frames -= OutItem.Frame ? 1 : 0;
	Lock.unlock();
	Changed.notify_all();
	return true;
}

void FPacketReader::Push(FReadItem InItem)
{
	std::unique_lock Lock(Mutex);
	Changed.wait(Lock, [this] { return bStop || (Frames < FramesAhead && Items.size() < ItemsAhead); });
	Frames += InItem.Frame ? 1 : 0;
	Items.push_back(std::move(InItem));
	Lock.unlock();
	Changed.notify_all();
}

void FPacketReader::Run()
{
	std::exception_ptr Caught;
	try
	{
		ReadAll();
	}
	catch (...)
	{
		Caught = std::current_exception();
	}
	{
		const std::lock_guard Lock(Mutex);
		Failure = Caught;
		bEnd = true;
	}
	Changed.notify_all();
}

void FPacketReader::ReadAll()
{
	const FPacketPtr Packet = MakePacket();
	const size_t Video = static_cast<size_t>(Input.Video().index);
	bool bMore = true;
	while (bMore && !AllPastEnd())
	{
		{
			const std::lock_guard Lock(Mutex);
			if (bStop)
			{
				return;
			}
		}
		bMore = Input.Read(*Packet);
		if (bMore && Packet->stream_index != Input.Video().index)
		{
			TakeOther(*Packet);
		}
		else if (!PastEnd[Video])
		{
			Decoder.Send(bMore ? Packet.get() : nullptr);
			TakeFrames();
		}
		av_packet_unref(Packet.get());
	}
}

void FPacketReader::TakeFrames()
{
	FFramePtr Frame = MakeFrame();
	while (Decoder.Receive(*Frame))
	{
		const int64 Ticks = Input.ToTicks(Frame->pts);
		if (Ticks >= Range.To)
		{
			PastEnd[static_cast<size_t>(Input.Video().index)] = true;
			return;
		}
		if (Ticks >= Range.From)
		{
			Push({std::exchange(Frame, MakeFrame()), nullptr});
		}
		av_frame_unref(Frame.get());
	}
}

void FPacketReader::TakeOther(const AVPacket& InPacket)
{
	const size_t Index = static_cast<size_t>(InPacket.stream_index);
	if (Index >= PastEnd.size())
	{
		// A stream that appears in mid-file has no place in the output.
		return;
	}
	const int64 Stamp = InPacket.pts != AV_NOPTS_VALUE ? InPacket.pts : InPacket.dts;
	if (Stamp != AV_NOPTS_VALUE && Input.ToTicks(Stamp, Input.Format().streams[Index]->time_base) >= Range.To)
	{
		PastEnd[Index] = true;
		return;
	}
	FPacketPtr Copy(av_packet_clone(&InPacket));
	if (!Copy)
	{
		throw std::bad_alloc();
	}
	Push({nullptr, std::move(Copy)});
}

bool FPacketReader::AllPastEnd() const
{
	for (size_t Index = 0; Index < PastEnd.size(); ++Index)
	{
		const AVStream& Stream = *Input.Format().streams[Index];
		const AVMediaType Kind = Stream.codecpar->codec_type;
		// There may be no subtitles for the rest of the file: do not wait for them.
		const bool bAwaited =
			Stream.discard != AVDISCARD_ALL && (Kind == AVMEDIA_TYPE_VIDEO || Kind == AVMEDIA_TYPE_AUDIO);
		if (bAwaited && !PastEnd[Index])
		{
			return false;
		}
	}
	return true;
}

} // namespace Flitmark
