#include "Scene/Overlay.h"

#include "Files/FileText.h"

#include <algorithm>
#include <cmath>

namespace Flitmark
{

namespace
{

constexpr uint32 Seed = 1;

/** Logical pixels per canvas unit; with any fewer, comments would be illegible. */
constexpr double MinScale = 0.5;

/** In seconds: a hundred years, so that ticks never overflow. */
constexpr double MaxMediaTime = 3.2e9;

} // namespace

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
	Overlay->Runner = FOverlayRunner::Create(*Overlay->Measure, Seed, OutError);
	if (!Overlay->Runner)
	{
		return nullptr;
	}
	Overlay->Runner->SeedEachSecond();
	return Overlay;
}

void FOverlay::Load(FString InText, const FCommentDocument& InDocument)
{
	Runner->Load(std::move(InText), ListTexts(InDocument));
	Meter.ForgetUndrawn();
}

void FOverlay::Clear()
{
	Load(FString(), FCommentDocument());
}

void FOverlay::SetView(QSizeF InPictureSize, double InDevicePixelRatio)
{
	if (InPictureSize.isEmpty())
	{
		return;
	}
	DevicePixelRatio = InDevicePixelRatio;
	const QSizeF Pixels = InPictureSize * InDevicePixelRatio;
	const double Height = std::min(FOverlayView::UsualHeight, InPictureSize.height() / MinScale);
	Runner->SetView(FOverlayView::Cover(FVector2D(Pixels.width(), Pixels.height()), 1.0, Height));
}

void FOverlay::SetMediaTime(double InSeconds)
{
	const double Seconds = std::isfinite(InSeconds) ? std::clamp(InSeconds, 0.0, MaxMediaTime) : 0.0;
	Runner->SetMediaTime(static_cast<int64>(Seconds * static_cast<double>(ETimespan::TicksPerSecond)));
}

void FOverlay::SetUrl(const std::string& InUrl)
{
	GetStage().SetUrl(FromUtf8(InUrl));
}

void FOverlay::RunFrame()
{
	RunFrame(Clock.Advance(ReadSteadyClock()));
}

void FOverlay::RunFrame(double InSeconds)
{
	Meter.BeginFrame(ReadSteadyClock());
	const FMeteredWork Work(Meter);
	Runner->RunFrame(InSeconds);
	Meter.SetNumComments(Runner->GetNumComments());
}

} // namespace Flitmark
