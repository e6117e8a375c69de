#include "Overlay/MeasureAhead.h"

#include "Formats/CommentDocument.h"

#include <algorithm>
#include <new>

namespace Flitmark
{

std::vector<FUpcomingText> ListTexts(const FCommentDocument& InDocument)
{
	std::vector<FUpcomingText> Texts;
	for (const FCommentEntry& Entry : InDocument.GetEntries())
	{
		if (Entry.IsReached() && Entry.FontSize > 0)
		{
			Texts.push_back(
				{Entry.GetSecond(), static_cast<float>(Entry.FontSize), std::u16string(InDocument.GetText(Entry))});
		}
	}
	return Texts;
}

FMeasureAhead::FMeasureAhead(FTextEngine& InEngine, std::vector<FUpcomingText> InTexts)
	: Engine(InEngine)
	, Texts(std::move(InTexts))
{
	std::ranges::stable_sort(Texts, {}, &FUpcomingText::Second);
	Thread = std::jthread([this](std::stop_token InStop) { Work(InStop); });
}

FMeasureAhead::~FMeasureAhead() = default;

void FMeasureAhead::SetMediaTime(int64 InTicks)
{
	const int64 NewSecond = InTicks / ETimespan::TicksPerSecond;
	{
		const std::lock_guard Lock(Mutex);
		if (NewSecond == Second)
		{
			return;
		}
		const bool bJumped = NewSecond < Second || NewSecond > Second + SecondsAhead;
		const int64 FirstSecond = bJumped ? NewSecond - SecondsBack : NewSecond;
		// Nothing further in the past, or skipped by a jump, needs measuring.
		const auto First = std::ranges::lower_bound(Texts, FirstSecond, {}, &FUpcomingText::Second);
		const auto Index = static_cast<std::size_t>(First - Texts.begin());
		Next = bJumped ? Index : std::max(Next, Index);
		Second = NewSecond;
	}
	Wake.notify_one();
}

const FUpcomingText* FMeasureAhead::TakeNext()
{
	if (Next == Texts.size() || Texts[Next].Second > Second + SecondsAhead)
	{
		return nullptr;
	}
	return &Texts[Next++];
}

void FMeasureAhead::Work(std::stop_token InStop)
{
	while (!InStop.stop_requested())
	{
		const FUpcomingText* Upcoming = nullptr;
		{
			std::unique_lock Lock(Mutex);
			if (!Wake.wait(Lock, InStop, [this, &Upcoming] { return (Upcoming = TakeNext()) != nullptr; }))
			{
				return;
			}
		}
		try
		{
			Engine.Measure(Upcoming->Text, Upcoming->Size);
		}
		catch (const std::bad_alloc&)
		{
			// Nothing is lost: the frame measures the text itself, and says so if there is still no memory.
			return;
		}
	}
}

} // namespace Flitmark
