#include "Scene/Overlay.h"

#include "Files/FileText.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Flitmark
{

namespace
{

constexpr uint32 Seed = 1;

/** Logical pixels per canvas unit; with any fewer, comments would be illegible. */
constexpr double MinScale = 0.5;

/** In seconds: a hundred years, so that ticks never overflow. */
constexpr double MaxMediaTime = 3.2e9;

/**
 * How far the media time may be ahead of the frames, in seconds at a rate of 1: too little to skip a whole second's
 * comments, but more than the interval between a slow film's pictures. After a late frame, in which the comments stood
 * still, less.
 */
constexpr double MostAhead = 1.25;
constexpr double MostAheadLate = 0.2;

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
	MediaTime = std::isfinite(InSeconds) ? std::clamp(InSeconds, 0.0, MaxMediaTime) : 0.0;
	Runner->SetMediaTime(static_cast<int64>(MediaTime * static_cast<double>(ETimespan::TicksPerSecond)));
}

void FOverlay::SetPaused(bool bInPaused)
{
	bPaused = bInPaused;
	Runner->SetPaused(bInPaused);
}

void FOverlay::SetRate(double InRate)
{
	Rate = InRate;
	Runner->SetRate(InRate);
}

void FOverlay::Jump()
{
	Runner->JumpInSlices();
	FrameMediaTime = MediaTime;
}

void FOverlay::SetSettings(const FOverlaySettings& InSettings)
{
	const FOverlaySettings Before = std::exchange(Runner->GetSettings(), InSettings);
	if (InSettings.Area != Before.Area || InSettings.FontScale != Before.FontScale ||
		InSettings.Offset != Before.Offset)
	{
		SetMediaTime(MediaTime);
		Jump();
	}
}

void FOverlay::SetUrl(const std::string& InUrl)
{
	GetStage().SetUrl(FromUtf8(InUrl));
}

void FOverlay::RunFrame()
{
	const double Seconds = Clock.Advance(ReadSteadyClock());
	RunFrame(Seconds, Clock.IsLate());
}

void FOverlay::RunFrame(double InSeconds, bool bInLate)
{
	Meter.BeginFrame(ReadSteadyClock());
	const FMeteredWork Work(Meter);
	if (HasLeapt(InSeconds, bInLate))
	{
		Runner->JumpInSlices();
	}
	else
	{
		Runner->RunFrame(InSeconds);
	}
	FrameMediaTime = MediaTime;
	Meter.SetNumComments(Runner->GetNumComments());
}

bool FOverlay::HasLeapt(double InSeconds, bool bInLate) const
{
	// While paused, the media time may belong to a seek under way; whoever seeks requests the jump.
	if (bPaused || Runner->IsJumping())
	{
		return false;
	}
	const double Ahead = MediaTime - FrameMediaTime - InSeconds * Rate;
	return std::floor(MediaTime) < std::floor(FrameMediaTime) ||
		   Ahead > (bInLate ? MostAheadLate : MostAhead) * std::max(Rate, 1.0);
}

bool FOverlay::TakeChange()
{
	std::vector<FDrawn> Now;
	for (const FSceneComment& Comment : GetScene().GetComments())
	{
		Now.push_back({Comment.Style->Id, Comment.Position});
	}
	const bool bChanged = Now != Drawn;
	Drawn = std::move(Now);
	return bChanged;
}

} // namespace Flitmark
