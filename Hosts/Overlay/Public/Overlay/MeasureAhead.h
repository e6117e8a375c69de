#pragma once

#include "CoreMinimal.h"
#include "Text/TextEngine.h"

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace Flitmark
{

class FCommentDocument;

/** A text that will be due. */
struct FUpcomingText
{
	/** Whole second of media time. */
	int64 Second = 0;
	/** Points at 96 DPI. */
	float Size = 0.f;
	std::u16string Text;
};

/** The texts of a document that will be due and have a size. */
std::vector<FUpcomingText> ListTexts(const FCommentDocument& InDocument);

/**
 * Measures the texts of the next seconds on its own thread, so that the frame in which a second's comments start finds
 * them measured. The text engine keeps the results; nothing depends on how far this has come.
 */
class FMeasureAhead
{
public:
	/** How far it looks ahead: long enough for any second, short enough for the text engine's memory. */
	static constexpr int64 SecondsAhead = 10;

	/** After a jump, how far it looks back first: for a jump, the overlay starts the comments of these seconds too. */
	static constexpr int64 SecondsBack = 20;

	/** InTexts: in any order. InEngine outlives this. */
	FMeasureAhead(FTextEngine& InEngine, std::vector<FUpcomingText> InTexts);
	~FMeasureAhead();

	/** 100-nanosecond ticks; may jump either way. */
	void SetMediaTime(int64 InTicks);

private:
	void Work(std::stop_token InStop);
	/** The next text to be measured, or null once the seconds ahead are done. */
	const FUpcomingText* TakeNext();

	FTextEngine& Engine;
	/** Sorted by second. */
	std::vector<FUpcomingText> Texts;

	std::mutex Mutex;
	std::condition_variable_any Wake;
	/** The next one in Texts; the current second of the media. */
	std::size_t Next = 0;
	int64 Second = -1;
	/** Last, so that it ends first. */
	std::jthread Thread;
};

} // namespace Flitmark
