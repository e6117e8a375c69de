#include "Overlay/OverlayRunner.h"

#include "Components/CanvasPanel.h"
#include "UI_Danmaku.h"

#include <utility>

namespace Flitmark
{

std::unique_ptr<FOverlayRunner> FOverlayRunner::Create(FTextMeasure& InMeasure, uint32 InSeed, std::string& OutError)
{
	std::unique_ptr<FOverlayRunner> Runner(new FOverlayRunner(InMeasure));
	FStageOptions Options;
	Options.Seed = InSeed;
	Options.Measure = &Runner->Scaled;
	Runner->Stage = FStage::Create(Options, OutError);
	return Runner->Stage ? std::move(Runner) : nullptr;
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
	if (!InTexts.empty())
	{
		Ahead = std::make_unique<FMeasureAhead>(Measure.GetEngine(), std::move(InTexts));
		Ahead->SetMediaTime(Stage->GetMediaTime());
	}
	if (bLaidOut)
	{
		Stage->GetOverlay().LoadDanmaku(InDocument);
		Jump();
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

void FOverlayRunner::ApplyPause()
{
	Stage->SetPlaying(!bPaused);
	if (bPaused)
	{
		Stage->GetOverlay().Pause();
	}
	else
	{
		Stage->GetOverlay().Resume();
	}
}

void FOverlayRunner::Jump()
{
	if (!bLaidOut)
	{
		return;
	}
	// A frame before second 0 makes the overlay forget its second; a paused one would not look at the time.
	Stage->GetOverlay().Resume();
	Stage->Preroll();
	ApplyPause();
	Stage->GetOverlay().Empty();
	UpdateScene(0.0);
}

void FOverlayRunner::RunFrame(double InSeconds)
{
	if (bLaidOut)
	{
		ApplySettings();
		const double Seconds = InSeconds * Rate * Settings.Speed;
		Stage->RunFrame(static_cast<float>(Seconds), static_cast<float>(InSeconds));
		UpdateScene(bPaused ? 0.0 : Seconds);
	}
}

void FOverlayRunner::UpdateScene(double InSeconds)
{
	Stage->CollectPaint(Comments);
	Scene.Update(Comments, {View.CanvasSize, Stage->GetCanvasSize().Y, Settings.FontScale}, InSeconds);
}

bool FOverlayRunner::IsMoving() const
{
	return !bPaused && Stage->GetCanvas().GetChildrenCount() > 0;
}

} // namespace Flitmark
