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

/** The next item of a file: a decoded frame of its video or a packet of another stream. */
struct FReadItem
{
	FFramePtr Frame;
	FPacketPtr Packet;
};

/** Which part of a file to read, in ticks of media time: from InFrom (inclusive) to InTo (exclusive). */
struct FReadRange
{
	int64 From = 0;
	int64 To = INT64_MAX;
};

/** Reads and decodes a few frames ahead on its own thread. */
class FPacketReader
{
public:
	/** Both belong to the thread until this object is gone. */
	FPacketReader(FVideoInput& InInput, FVideoDecoder& InDecoder, const FReadRange& InRange);

	/** Stops reading. */
	~FPacketReader();

	/** The next item, in file order; false at the end. Exceptions of the thread are rethrown here. */
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

	/** Per stream: whether it is past the end of the range. */
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
