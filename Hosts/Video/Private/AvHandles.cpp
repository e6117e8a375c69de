#include "AvHandles.h"

#include <new>

namespace Flitmark
{

FFramePtr MakeFrame()
{
	FFramePtr Frame(av_frame_alloc());
	if (!Frame)
	{
		throw std::bad_alloc();
	}
	return Frame;
}

FPacketPtr MakePacket()
{
	FPacketPtr Packet(av_packet_alloc());
	if (!Packet)
	{
		throw std::bad_alloc();
	}
	return Packet;
}

} // namespace Flitmark
