#include "Scene/Overlay.h"

#include "Components/CanvasPanel.h"
#include "Files/FileText.h"
#include "UI_Danmaku.h"

#include <algorithm>
#include <cmath>

namespace Flitmark
{

namespace
{

constexpr double UsualCanvasHeight = 1080.0;
/** Logical pixels per canvas unit; under it comments could not be read. */
constexpr double MinScale = 0.5;

constexpr double TicksPerSecond = 1e7;
/** Seconds; a hundred years, so that ticks never overflow. */
constexpr double MaxMediaTime = 3.2e9;

} // namespace

FOverlayView FOverlayView::Cover(QSizeF InPictureSize, double InDevicePixelRatio)
{
	const double Scale = std::max(InPictureSize.height() / UsualCanvasHeight, MinScale);
	return {InPictureSize, InDevicePixelRatio, Scale,
			FVector2D(InPictureSize.width() / Scale, InPictureSize.height() / Scale)};
}

FOverlay::FOverlay(std::unique_ptr<FTextMeasure> InMeasure)
	: Measure(std::move(InMeasure))
	, Maker(std::make_shared<FSpriteMaker>(Measure->GetEngine()))
{
}

FOverlay::~FOverlay()
{
	Maker->Stop();
}

std::unique_ptr<FOverlay> FOverlay::Create(std::string& OutError)
{
	std::unique_ptr<FTextMeasure> Measure = FTextMeasure::Create({}, OutError);
	if (!Measure)
	{
		return nullptr;
	}
	std::unique_ptr<FOverlay> Overlay(new FOverlay(std::move(Measure)));
	FStageOptions Options;
	Options.Measure = Overlay->Measure.get();
	Overlay->Stage = FStage::Create(Options, OutError);
	return Overlay->Stage ? std::move(Overlay) : nullptr;
}

void FOverlay::Load(FString InText, FCommentDocument InDocument)
{
	Ahead.reset();
	Ahead = std::make_unique<FMeasureAhead>(Measure->GetEngine(), std::move(InDocument));
	Ahead->SetMediaTime(Stage->GetMediaTime());
	PendingText = std::move(InText);
	TakeDocument();
}

void FOverlay::Clear()
{
	Ahead.reset();
	PendingText = FString();
	TakeDocument();
}

void FOverlay::TakeDocument()
{
	if (bLaidOut)
	{
		Stage->GetOverlay().LoadDanmaku(PendingText);
		PendingText = FString();
		Jump();
		Meter.ForgetUndrawn();
	}
}

void FOverlay::SetView(QSizeF InPictureSize, double InDevicePixelRatio)
{
	if (InPictureSize.isEmpty())
	{
		return;
	}
	View = FOverlayView::Cover(InPictureSize, InDevicePixelRatio);
	Stage->SetCanvasSize(FVector2f(static_cast<float>(View.CanvasSize.X), static_cast<float>(View.CanvasSize.Y)));
	if (!bLaidOut)
	{
		Stage->Preroll();
		bLaidOut = true;
		// The overlay could not be paused before.
		ApplyPause();
		TakeDocument();
	}
}

void FOverlay::SetPaused(bool bInPaused)
{
	if (bPaused != bInPaused)
	{
		bPaused = bInPaused;
		ApplyPause();
	}
}

void FOverlay::ApplyPause()
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

void FOverlay::SetMediaTime(double InSeconds)
{
	const double Seconds = std::isfinite(InSeconds) ? std::clamp(InSeconds, 0.0, MaxMediaTime) : 0.0;
	const auto Ticks = static_cast<int64>(Seconds * TicksPerSecond);
	Stage->SetMediaTime(Ticks);
	if (Ahead)
	{
		Ahead->SetMediaTime(Ticks);
	}
}

void FOverlay::SetUrl(const std::string& InUrl)
{
	Stage->SetUrl(FromUtf8(InUrl));
}

void FOverlay::Jump()
{
	if (!bLaidOut)
	{
		return;
	}
	// A frame in a second before 0 lets the overlay forget which one it was in; one that is paused looks at no second.
	if (bPaused)
	{
		Stage->GetOverlay().Resume();
	}
	Stage->Preroll();
	if (bPaused)
	{
		Stage->GetOverlay().Pause();
	}
	Stage->GetOverlay().Empty();
	CollectScene();
}

void FOverlay::RunFrame()
{
	RunFrame(Clock.Advance(ReadSteadyClock()));
}

void FOverlay::RunFrame(double InSeconds)
{
	Meter.BeginFrame(ReadSteadyClock());
	const FMeteredWork Work(Meter);
	if (bLaidOut)
	{
		Stage->RunFrame(static_cast<float>(InSeconds * Rate * SpeedScale), static_cast<float>(InSeconds));
		CollectScene();
	}
}

void FOverlay::CollectScene()
{
	Stage->CollectPaint(Comments);
	Scene.Update(Comments, View.CanvasSize);
	Meter.SetNumComments(static_cast<int32>(Comments.size()));
}

bool FOverlay::IsMoving() const
{
	return !bPaused && Stage->GetCanvas().GetChildrenCount() > 0;
}

} // namespace Flitmark
