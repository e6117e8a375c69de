#pragma once

#include "Stage/CommentDocument.h"
#include "Text/TextEngine.h"

#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

namespace Flitmark
{

/**
 * Measures the texts of the seconds to come on a thread of its own, so that the frame in which a second's comments start
 * finds them measured. The text engine remembers; nothing depends on how far this has come.
 */
class FMeasureAhead
{
public:
	/** How far it looks ahead: long enough for any second, short enough for the text engine's memory. */
	static constexpr int64 SecondsAhead = 10;

	/** InEngine outlives this. */
	FMeasureAhead(FTextEngine& InEngine, FCommentDocument InDocument);
	~FMeasureAhead();

	/** 100-nanosecond ticks; may jump either way. */
	void SetMediaTime(int64 InTicks);

private:
	void Work(std::stop_token InStop);
	/** The next comment to be measured, or null where the seconds ahead are done. */
	const FCommentEntry* TakeNext();

	FTextEngine& Engine;
	const FCommentDocument Document;
	/** Indices of the comments that are ever due, by second. */
	std::vector<uint32> Order;

	std::mutex Mutex;
	std::condition_variable_any Wake;
	/** Into Order; the second that the media is in. */
	std::size_t Next = 0;
	int64 Second = -1;
	/** Last, so that it ends first. */
	std::jthread Thread;
};

} // namespace Flitmark
