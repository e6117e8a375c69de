#pragma once

#include "CoreTypes.h"
#include "VideoDecoder.h"
#include "VideoInput.h"

#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace Flitmark
{

/** What comes next in a file: a decoded frame of its video, or a packet of another stream. */
struct FReadItem
{
	FFramePtr Frame;
	FPacketPtr Packet;
};

/** Which part of a file is read, ticks of media time: from InFrom (included) to InTo (left out). */
struct FReadRange
{
	int64 From = 0;
	int64 To = INT64_MAX;
};

/** Reads and decodes on a thread of its own, a few frames ahead. */
class FPacketReader
{
public:
	/** Both are the thread's own until this object is gone. */
	FPacketReader(FVideoInput& InInput, FVideoDecoder& InDecoder, const FReadRange& InRange);

	/** Stops reading. */
	~FPacketReader();

	/** The next item, in the file's order; false at the end. What went wrong on the thread is thrown here. */
	bool Next(FReadItem& OutItem);

private:
	void Run();
	void ReadAll();
	void TakeFrames();
	void TakeOther(const AVPacket& InPacket);
	bool AllPastEnd() const;
	void Push(FReadItem InItem);

	FVideoInput& Input;
	FVideoDecoder& Decoder;
	FReadRange Range;

	/** By the streams: whether they have come past the end of the range. */
	std::vector<bool> PastEnd;

	std::mutex Mutex;
	std::condition_variable Changed;
	std::deque<FReadItem> Items;
	size_t Frames = 0;
	bool bEnd = false;
	bool bStop = false;
	std::exception_ptr Failure;
	std::thread Thread;
};

} // namespace Flitmark
