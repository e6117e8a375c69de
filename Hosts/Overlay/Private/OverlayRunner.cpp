#include "Overlay/OverlayRunner.h"

#include "Components/CanvasPanel.h"
#include "UI_Danmaku.h"
#include "UI_DanmakuNode.h"

#include <algorithm>
#include <utility>

namespace Flitmark
{

namespace
{

bool IsWanted(const FPaintComment& InComment, const FOverlaySettings& InSettings)
{
	switch (InComment.Node->GetData().Mode)
	{
	case EDanmakuMode::SCROLL:
		return InSettings.bShowsScrolling || InComment.bViewers;
	case EDanmakuMode::TOP:
		return InSettings.bShowsTop || InComment.bViewers;
	case EDanmakuMode::BOTTOM:
		return InSettings.bShowsBottom || InComment.bViewers;
	default:
		return true;
	}
}

} // namespace

std::unique_ptr<FOverlayRunner> FOverlayRunner::Create(FTextMeasure& InMeasure, uint32 InSeed, std::string& OutError)
{
	std::unique_ptr<FOverlayRunner> Runner(new FOverlayRunner(InMeasure));
	FStageOptions Options;
	Options.Seed = InSeed;
	Options.Measure = &Runner->Scaled;
	Runner->Seed = InSeed;
	Runner->Stage = FStage::Create(Options, OutError);
	if (!Runner->Stage)
	{
		return nullptr;
	}
	Runner->Tally = std::make_unique<FPlacementTally>(*Runner->Stage);
	return Runner;
}

void FOverlayRunner::SetView(const FOverlayView& InView)
{
	View = InView;
	ApplySettings();
	if (!bLaidOut)
	{
		Stage->Preroll();
		bLaidOut = true;
		// The overlay takes no document and no pause before.
		ApplyPause();
		Stage->GetOverlay().LoadDanmaku(std::exchange(PendingDocument, FString()));
	}
}

void FOverlayRunner::Load(FString InDocument, std::vector<FUpcomingText> InTexts)
{
	// The old one's thread ends before the new one's starts.
	Ahead.reset();
	ListWideTexts(InTexts);
	if (!InTexts.empty())
	{
		Ahead = std::make_unique<FMeasureAhead>(Measure.GetEngine(), std::move(InTexts));
		Ahead->SetMediaTime(Stage->GetMediaTime());
	}
	if (bLaidOut)
	{
		Stage->GetOverlay().LoadDanmaku(InDocument);
		JumpInSlices();
	}
	else
	{
		PendingDocument = std::move(InDocument);
	}
}

void FOverlayRunner::SetMediaTime(int64 InTicks)
{
	const int64 Ticks = Settings.GetStageTime(InTicks);
	Stage->SetMediaTime(Ticks);
	if (Ahead)
	{
		Ahead->SetMediaTime(Ticks);
	}
}

void FOverlayRunner::ApplySettings()
{
	Stage->SetCanvasSize(Settings.GetStageSize(View.CanvasSize));
	Scaled.SetScale(Settings.FontScale);
}

void FOverlayRunner::SetPaused(bool bInPaused)
{
	if (bPaused != bInPaused)
	{
		bPaused = bInPaused;
		ApplyPause();
	}
}

bool FOverlayRunner::IsOpen() const
{
	return Stage->GetOverlay().IsDisplayed() && Stage->GetCanvas().IsDisplayed();
}

void FOverlayRunner::ApplyPause()
{
	Stage->SetPlaying(!bPaused);
	if (IsJumping())
	{
		return;
	}
	// Switched off, the overlay would go on starting comments on its hidden canvas.
	if (bPaused || !IsOpen())
	{
		Stage->GetOverlay().Pause();
	}
	else
	{
		Stage->GetOverlay().Resume();
	}
}

void FOverlayRunner::RunFrame(double InSeconds)
{
	if (!bLaidOut)
	{
		return;
	}
	ApplySettings();
	if (HasLostComments())
	{
		BeginJump();
	}
	if (IsJumping())
	{
		OwedTimerTime += InSeconds;
		RunSlice(SliceTime);
		return;
	}
	const int64 Second = Stage->GetMediaTime() / ETimespan::TicksPerSecond;
	if (bSeedsEachSecond && !bPaused && SeededSecond != Second)
	{
		SeedSecond(Second);
	}
	const double Seconds = InSeconds * Rate * Settings.Speed;
	Stage->RunFrame(static_cast<float>(Seconds), static_cast<float>(InSeconds));
	UpdateScene(bPaused ? 0.0 : Seconds);
	if (const int64 Ticks = Stage->GetMediaTime(); Ticks >= 0)
	{
		FirstSecond = std::min(FirstSecond, Ticks / ETimespan::TicksPerSecond);
		LastSecond = std::max(LastSecond, Ticks / ETimespan::TicksPerSecond);
	}
}

void FOverlayRunner::UpdateScene(double InSeconds)
{
	Stage->CollectPaint(Comments);
	std::erase_if(Comments, [this](const FPaintComment& InComment) { return !IsWanted(InComment, Settings); });
	bScrolls = std::ranges::any_of(Comments, [](const FPaintComment& InComment)
								   { return InComment.Node->GetData().Mode == EDanmakuMode::SCROLL; });
	Scene.Update(Comments, {View.CanvasSize, Stage->GetCanvasSize().Y, Settings.FontScale}, InSeconds);
}

bool FOverlayRunner::IsMoving() const
{
	return IsJumping() || (!bPaused && bScrolls);
}

} // namespace Flitmark
