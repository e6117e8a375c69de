#include "Overlay/MeasureAhead.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

constexpr int64 TicksPerSecond = 10'000'000;

} // namespace

FMeasureAhead::FMeasureAhead(FTextEngine& InEngine, FCommentDocument InDocument)
	: Engine(InEngine)
	, Document(std::move(InDocument))
{
	const std::vector<FCommentEntry>& Entries = Document.GetEntries();
	for (uint32 Index = 0; Index < Entries.size(); ++Index)
	{
		if (Entries[Index].IsReached() && Entries[Index].FontSize > 0)
		{
			Order.push_back(Index);
		}
	}
	std::ranges::stable_sort(Order, {}, [&Entries](uint32 InIndex) { return Entries[InIndex].GetSecond(); });
	Thread = std::jthread([this](std::stop_token InStop) { Work(InStop); });
}

FMeasureAhead::~FMeasureAhead() = default;

void FMeasureAhead::SetMediaTime(int64 InTicks)
{
	const int64 NewSecond = InTicks / TicksPerSecond;
	{
		const std::lock_guard Lock(Mutex);
		if (NewSecond == Second)
		{
			return;
		}
		// What lies behind, and what a jump passes over, needs no measuring.
		const auto Due = [this](uint32 InIndex)
		{
			return Document.GetEntries()[InIndex].GetSecond();
		};
		const auto First =
			static_cast<std::size_t>(std::ranges::lower_bound(Order, NewSecond, {}, Due) - Order.begin());
		Next = NewSecond < Second ? First : std::max(Next, First);
		Second = NewSecond;
	}
	Wake.notify_one();
}

const FCommentEntry* FMeasureAhead::TakeNext()
{
	if (Next == Order.size())
	{
		return nullptr;
	}
	const FCommentEntry& Entry = Document.GetEntries()[Order[Next]];
	if (Entry.GetSecond() > Second + SecondsAhead)
	{
		return nullptr;
	}
	++Next;
	return &Entry;
}

void FMeasureAhead::Work(std::stop_token InStop)
{
	while (!InStop.stop_requested())
	{
		const FCommentEntry* Entry = nullptr;
		{
			std::unique_lock Lock(Mutex);
			if (!Wake.wait(Lock, InStop, [this, &Entry] { return (Entry = TakeNext()) != nullptr; }))
			{
				return;
			}
		}
		Engine.Measure(Document.GetText(*Entry), static_cast<float>(Entry->FontSize));
	}
}

} // namespace Flitmark
