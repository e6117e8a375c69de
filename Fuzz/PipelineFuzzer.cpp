#include "Comments/CommentsInput.h"
#include "FormatsKit.h"
#include "FuzzKit.h"
#include "Overlay/OverlayRunner.h"
#include "Overlay/SceneSprites.h"
#include "PipelinePlan.h"
#include "Text/TextLimits.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <numeric>
#include <optional>
#include <string>
#include <sys/mman.h>
#include <unistd.h>
#include <unordered_set>
#include <vector>

namespace Flitmark
{

namespace
{

/** What reading a file may take beside four times its size. */
constexpr int64 MaxLoadBytes = 200'000'000;

/** So little that a fuzzer reaches it. */
constexpr int64 SpriteBytes = int64{64} << 20;
constexpr int64 LargestSprite = 4 * FTextLimits::MaxSpritePixels;

/** What running the overlay may take beside: the sprites, one over their limit, what it is drawn from, and the caches. */
constexpr int64 MaxRunBytes =
	MaxLoadBytes + SpriteBytes + 4 * LargestSprite + FTextLimits::GlyphCacheBytes + FTextLimits::MeasureCacheBytes;

/** Bytes as a file that has a path but is on no disk. */
std::string MakeFile(std::string_view InBytes)
{
	static const int File = memfd_create("comments", MFD_CLOEXEC);
	Require(File >= 0 && ftruncate(File, 0) == 0, "there is a file");
	Require(pwrite(File, InBytes.data(), InBytes.size(), 0) == static_cast<ssize_t>(InBytes.size()),
			"the file is written");
	return "/proc/self/fd/" + std::to_string(File);
}

FTextMeasure& GetMeasure()
{
	static std::string Error;
	static const std::unique_ptr<FTextMeasure> Measure = FTextMeasure::Create({}, Error);
	Require(Measure != nullptr, "there are fonts");
	return *Measure;
}

bool IsEqual(const FCommentDocument& InLeft, const FCommentDocument& InRight)
{
	return std::ranges::equal(InLeft.GetEntries(), InRight.GetEntries(),
							  [&](const FCommentEntry& InOne, const FCommentEntry& InOther)
							  {
								  return InOne.SpawnTicks == InOther.SpawnTicks && InOne.FontSize == InOther.FontSize &&
										 InOne.Color == InOther.Color && InOne.Kind == InOther.Kind &&
										 InLeft.GetText(InOne) == InRight.GetText(InOther);
							  });
}

/** Each entry of the file is in what the overlay is handed, or its loss has a reason. */
void CheckFile(const FCommentsFile& InFile)
{
	const FCommentsReport& Report = InFile.Report;
	if (Report.bImported)
	{
		// Our own document has no report of how it was read: all of it is taken.
		if (Report.Import.Format != &OwnDocumentFormat)
		{
			CheckReport(Report.Import);
		}
		int64 NumLeft = static_cast<int64>(Report.Import.NumRead - Report.Kinds.CountDropped());
		for (const FFilterRule& Rule : InFile.Rules)
		{
			Require(Rule.NumTaken >= 0 && Rule.NumChanged >= 0, "a rule counts up");
			NumLeft -= Rule.NumTaken;
		}
		Require(static_cast<int64>(InFile.Document.GetEntries().size()) == NumLeft - Report.NumCrowdedOut,
				"each comment that was read is there or was left out for a reason");
		Require(Report.NumFitted <= Report.Import.NumRead, "what is made smaller was read");
	}
	Require(IsEqual(FCommentDocument::Read(InFile.Text), InFile.Document), "the overlay reads what was counted");
	for (const std::string& Note : InFile.MakeNotes())
	{
		Require(!Note.empty(), "a note says something");
	}
}

std::optional<FCommentsFile> LoadChecked(const FPipelinePlan& InPlan)
{
	const FHeapWatch Heap;
	const FCommentsOptions Options = {InPlan.Kinds, InPlan.Filter.get(), true};
	std::string Error;
	const std::string Path = MakeFile(InPlan.Comments);
	std::optional<FCommentsFile> File =
		InPlan.bAnyText ? LoadAnyText(Path, Options, Error) : LoadComments(Path, Options, Error);
	Require(File.has_value() == Error.empty(), "there is an error message if, and only if, it failed");
	Require(Heap.GetPeak() <= MaxLoadBytes + 4 * static_cast<int64>(InPlan.Comments.size()),
			"reading a file takes no more memory than it may");
	if (File)
	{
		CheckFile(*File);
	}
	return File;
}

/** Knows how many comments the overlay has to start, from the document alone. */
class FExpectation
{
public:
	explicit FExpectation(const FCommentDocument& InDocument)
	{
		for (const FCommentEntry& Entry : InDocument.GetEntries())
		{
			if (Entry.IsReached())
			{
				++NumAt[Entry.GetSecond()];
			}
		}
	}

	/** After a frame at that time: a second's comments start when it begins. */
	void OnFrame(int64 InTicks)
	{
		if (const int64 Second = FindSecond(InTicks); Second != Last)
		{
			const auto Found = NumAt.find(Second);
			Num += Found != NumAt.end() ? Found->second : 0;
			Last = Second;
		}
	}

	/** After a jump there: all of some seconds before it have started anew. */
	void OnJump(int64 InTicks, int64 InNumNow)
	{
		Last = FindSecond(InTicks);
		auto First = NumAt.upper_bound(Last);
		while (Num < InNumNow && First != NumAt.begin())
		{
			Num += (--First)->second;
		}
	}

	int64 Count() const { return Num; }

private:
	/** Of the day. */
	static int64 FindSecond(int64 InTicks)
	{
		constexpr int64 SecondsPerDay = 86'400;
		return InTicks / ETimespan::TicksPerSecond % SecondsPerDay;
	}

	std::map<int64, int64> NumAt;
	int64 Last = -1;
	int64 Num = 0;
};

/** Runs the overlay as hosts do, and looks at what comes of it after each frame. */
class FRun
{
public:
	FRun(const FPipelinePlan& InPlan, FCommentsFile InFile)
		: Plan(InPlan)
		, Expected(InFile.Document)
	{
		for (const FCommentEntry& Entry : InFile.Document.GetEntries())
		{
			Targets.push_back(std::max<int64>(Entry.SpawnTicks, 0));
		}
		std::string Error;
		Runner = FOverlayRunner::Create(GetMeasure(), Plan.Seed, Error);
		Require(Runner != nullptr, "there is a stage");
		Runner->GetSettings() = Plan.Settings[0];
		std::vector<FUpcomingText> Texts = ListTexts(InFile.Document);
		if (!Plan.bSeedsEachSecond)
		{
			Runner->Load(std::move(InFile.Text), std::move(Texts));
			Show(0);
			return;
		}
		// As the player does, whose viewer opens one file after the other.
		Runner->SeedEachSecond();
		Show(0);
		Runner->Load(std::move(InFile.Text), std::move(Texts));
		FinishJump();
	}

	void RunFrame(std::size_t InNumber)
	{
		const FFramePlan& Frame = Plan.Frames[InNumber % Plan.Frames.size()];
		DoEvent(Frame);
		if (!bPaused)
		{
			Ticks += std::min(static_cast<int64>(Frame.Seconds * ETimespan::TicksPerSecond), MAX_int64 - Ticks);
		}
		Runner->SetMediaTime(Ticks);
		Runner->RunFrame(Frame.Seconds);
		Require(!Runner->IsJumping(), "nothing jumps by itself");
		if (!bPaused)
		{
			Expected.OnFrame(Runner->GetStage().GetMediaTime());
		}
		CheckTally();
		CheckSprites();
	}

private:
	void DoEvent(const FFramePlan& InFrame)
	{
		switch (InFrame.Event)
		{
		case EFrameEvent::None:
			return;
		case EFrameEvent::Jump:
		case EFrameEvent::JumpInSlices:
			Ticks = Targets.empty() ? 0 : Targets[InFrame.Target * Targets.size() / 256];
			Runner->SetMediaTime(Ticks);
			InFrame.Event == EFrameEvent::Jump ? Runner->Jump() : Runner->JumpInSlices();
			FinishJump();
			return;
		case EFrameEvent::Pause:
			bPaused = !bPaused;
			Runner->SetPaused(bPaused);
			return;
		case EFrameEvent::Resize:
			Show(1 - Shown);
			return;
		case EFrameEvent::Adjust:
			Adjusted = 1 - Adjusted;
			Runner->GetSettings() = Plan.Settings[Adjusted];
			return;
		}
	}

	void Show(std::size_t InView)
	{
		Shown = InView;
		Runner->SetView(Plan.Views[Shown]);
		Sprites.emplace(GetMeasure().GetEngine(), Runner->GetView().Scale, SpriteBytes);
	}

	void FinishJump()
	{
		while (Runner->IsJumping())
		{
			Runner->RunFrame(0.0);
		}
		Expected.OnJump(Runner->GetStage().GetMediaTime(), Runner->GetTally().GetCounts().CountAll());
	}

	void CheckTally() const
	{
		const FPlacementTally& Tally = Runner->GetTally();
		Require(Tally.GetCounts().CountAll() == Expected.Count(), "each comment that was due became something");
		int64 NumInMinutes = 0;
		for (const auto& [Minute, Counts] : Tally.GetMinutes())
		{
			NumInMinutes += Counts.CountAll();
		}
		Require(NumInMinutes == Expected.Count(), "the minutes add up");
		Require(Tally.CountPresent() <= Tally.GetCounts().NumShown, "what is there was shown");
	}

	void CheckSprites()
	{
		std::vector<FPlacedSprite> Placed;
		Sprites->Place(Runner->GetScene(), Runner->GetSettings(), Placed);
		Require(Placed.size() <= static_cast<std::size_t>(Runner->GetNumComments()), "no comment is drawn twice");
		std::unordered_set<const FSprite*> Seen;
		int64 Bytes = 0;
		for (const FPlacedSprite& Each : Placed)
		{
			Require(std::isfinite(Each.X) && std::isfinite(Each.Y), "a sprite has a place");
			if (Seen.insert(Each.Sprite.get()).second)
			{
				const int64 NumPixels = int64{Each.Sprite->Width} * Each.Sprite->Height;
				Require(NumPixels <= FTextLimits::MaxSpritePixels, "a sprite is not too large");
				Require(static_cast<int64>(Each.Sprite->Pixels.size()) == 4 * NumPixels, "a sprite has its pixels");
				Bytes += 4 * NumPixels;
			}
		}
		Require(Bytes <= SpriteBytes + LargestSprite, "sprites are no larger than they may be");
	}

	const FPipelinePlan& Plan;
	FExpectation Expected;
	/** Where jumps go, in ticks. */
	std::vector<int64> Targets;
	std::unique_ptr<FOverlayRunner> Runner;
	std::optional<FSceneSprites> Sprites;
	int64 Ticks = 0;
	bool bPaused = false;
	std::size_t Shown = 0;
	std::size_t Adjusted = 0;
};

} // namespace

} // namespace Flitmark

/** Any bytes as a file of comments, filtered, and shown on a canvas of any size for a hundred frames. */
extern "C" int LLVMFuzzerTestOneInput(const uint8* Data, std::size_t Size)
{
	using namespace Flitmark;
	constexpr std::size_t NumFrames = 100;
	const FPipelinePlan Plan = ReadPlan(Data, Size);
	GetMeasure();
	std::optional<FCommentsFile> File = LoadChecked(Plan);
	if (File)
	{
		const FHeapWatch Heap;
		FRun Run(Plan, std::move(*File));
		for (std::size_t Frame = 0; Frame < NumFrames; ++Frame)
		{
			Run.RunFrame(Frame);
		}
		Require(Heap.GetPeak() <= MaxRunBytes, "the overlay takes no more memory than it may");
	}
	return 0;
}
