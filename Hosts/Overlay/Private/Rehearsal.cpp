#include "Overlay/Rehearsal.h"

#include "Components/CanvasPanel.h"
#include "Files/FileText.h"
#include "Formats/CommentDocument.h"
#include "Formats/CommentDocumentWriter.h"
#include "Overlay/ScaledMeasure.h"
#include "Stage/Stage.h"
#include "UI_Danmaku.h"

#include <algorithm>
#include <vector>

namespace Flitmark
{

namespace
{

/** Comments that the overlay is handed at a time, rounded up to whole seconds. */
constexpr std::size_t PortionSize = 20'000;

/** Orders a document's comments as they come due. */
class FSchedule
{
public:
	FSchedule(const FCommentDocument& InDocument, const FRehearsalOptions& InOptions)
		: Document(InDocument)
	{
		const std::vector<FCommentEntry>& Entries = Document.GetEntries();
		for (uint32 Index = 0; Index < Entries.size(); ++Index)
		{
			const FCommentEntry& Entry = Entries[Index];
			if (Entry.IsReached() && Entry.GetSecond() >= InOptions.FirstSecond &&
				Entry.GetSecond() <= InOptions.LastSecond)
			{
				Order.push_back(Index);
			}
		}
		std::ranges::stable_sort(Order, {}, [&Entries](uint32 InIndex) { return Entries[InIndex].GetSecond(); });
	}

	bool IsDone() const { return Next == Order.size(); }
	double GetShareDone() const { return static_cast<double>(Next) / static_cast<double>(Order.size()); }

	/** The second of the next comment. */
	int64 GetSecond() const { return GetSecondAt(Next); }

	/** Whether the second's comments have yet to be handed over. */
	bool NeedsPortion() const { return Next == PortionEnd; }

	/** The comments of the next seconds as a document of ours. */
	FString TakePortion()
	{
		std::vector<FServiceComment> Comments;
		for (; PortionEnd < Order.size(); ++PortionEnd)
		{
			if (Comments.size() >= PortionSize && GetSecondAt(PortionEnd) != GetSecondAt(PortionEnd - 1))
			{
				break;
			}
			const FCommentEntry& Entry = Document.GetEntries()[Order[PortionEnd]];
			FServiceComment& Comment = Comments.emplace_back();
			Comment.SpawnTicks = Entry.SpawnTicks;
			Comment.Text = ToUtf8(FString(FStringView(Document.GetText(Entry))));
			Comment.Kind = Entry.Kind;
			Comment.FontSize = Entry.FontSize;
			Comment.Color = Entry.Color;
		}
		return FromUtf8(WriteCommentDocument(Comments));
	}

	void PassSecond()
	{
		const int64 Second = GetSecond();
		while (!IsDone() && GetSecond() == Second)
		{
			++Next;
		}
	}

private:
	int64 GetSecondAt(std::size_t InPlace) const { return Document.GetEntries()[Order[InPlace]].GetSecond(); }

	const FCommentDocument& Document;
	std::vector<uint32> Order;
	std::size_t Next = 0;
	std::size_t PortionEnd = 0;
};

/** Frames at even times, of which those on an empty canvas are left out. */
class FFrames
{
public:
	FFrames(FStage& InStage, const FRehearsalOptions& InOptions)
		: Stage(InStage)
		, Fps(InOptions.Fps)
		, FrameTime(1.0 / InOptions.Fps)
		, Speed(InOptions.Settings.Speed)
	{
	}

	/** The frames before the first one of a second. */
	void RunUpTo(int64 InSecond)
	{
		while (Frame < InSecond * Fps)
		{
			if (Stage.GetCanvas().GetChildrenCount() == 0)
			{
				Frame = InSecond * Fps;
				return;
			}
			Run();
		}
	}

	void Run()
	{
		Stage.SetMediaTime(Frame * ETimespan::TicksPerSecond / Fps);
		Stage.RunFrame(static_cast<float>(FrameTime * Speed), static_cast<float>(FrameTime));
		++Frame;
	}

private:
	FStage& Stage;
	const int64 Fps;
	const double FrameTime;
	const double Speed;
	int64 Frame = 0;
};

} // namespace

std::optional<FRehearsal> Rehearse(const FCommentDocument& InDocument, const FRehearsalOptions& InOptions,
								   std::string& OutError)
{
	FScaledMeasure Measure(*InOptions.Measure, InOptions.Settings.FontScale);
	FStageOptions Options;
	Options.CanvasSize = InOptions.Settings.GetStageSize(InOptions.Size);
	Options.Seed = InOptions.Seed;
	Options.Measure = &Measure;
	const std::unique_ptr<FStage> Stage = FStage::Create(Options, OutError);
	if (!Stage)
	{
		return std::nullopt;
	}
	const FPlacementTally Tally(*Stage);
	Stage->Preroll();
	FSchedule Schedule(InDocument, InOptions);
	FFrames Frames(*Stage, InOptions);
	while (!Schedule.IsDone())
	{
		Frames.RunUpTo(Schedule.GetSecond());
		if (Schedule.NeedsPortion())
		{
			Stage->GetOverlay().LoadDanmaku(Schedule.TakePortion());
			if (InOptions.Progress)
			{
				InOptions.Progress(Schedule.GetShareDone());
			}
		}
		Frames.Run();
		Schedule.PassSecond();
	}
	return FRehearsal{Tally.GetCounts(), Tally.GetMinutes()};
}

} // namespace Flitmark
