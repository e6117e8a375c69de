#include "Overlay/OverlayRunner.h"

#include "Components/CanvasPanel.h"
#include "Text/TextLimits.h"
#include "UI_Danmaku.h"
#include "UI_DanmakuNode.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <utility>

namespace Flitmark
{

namespace
{

/** Seconds that a comment takes for a canvas unit of its way: a little more than the slower of the module's two paces. */
constexpr double SlowestPace = 0.006;

/** Canvas units; most comments are narrower. */
constexpr double UsualWidth = 1000.0;

/** Slower settings of the comments' time do not make a jump look back any further. */
constexpr double LeastSpeed = 0.05;

/** Seconds by which a comment has moved on its first frame: half a frame at 60 Hz, as it starts anywhere within one. */
constexpr double FirstStep = 1.0 / 120.0;

/** Seconds by which a silent second is longer, so that a comment whose time is up by then leaves its lane, as it nearly
 * always does when played. */
constexpr double Excess = 1e-4;

/** Spreads a seed and a second over all seeds: of near seeds, the first draws are alike. */
uint32 MixSeed(uint32 InSeed, int64 InSecond)
{
	uint64 Mixed = (static_cast<uint64>(InSeed) << 32) + static_cast<uint64>(InSecond) + 0x9E3779B97F4A7C15u;
	Mixed = (Mixed ^ (Mixed >> 30)) * 0xBF58476D1CE4E5B9u;
	Mixed = (Mixed ^ (Mixed >> 27)) * 0x94D049BB133111EBu;
	return static_cast<uint32>(Mixed ^ (Mixed >> 31));
}

/** Canvas units that a text takes at most. */
double BoundWidth(const FUpcomingText& InText)
{
	const std::size_t Length = std::min(InText.Text.size(), FTextLimits::MaxCodeUnits);
	return static_cast<double>(Length) * double{InText.Size} * 96.0 / 72.0;
}

} // namespace

void FOverlayRunner::Jump()
{
	BeginJump();
	RunSlice(std::numeric_limits<double>::infinity());
}

void FOverlayRunner::JumpInSlices()
{
	BeginJump();
	RunSlice(SliceTime);
}

void FOverlayRunner::SeedSecond(int64 InSecond)
{
	std::srand(MixSeed(Seed, InSecond));
	SeededSecond = InSecond;
}

bool FOverlayRunner::HasLostComments()
{
	// Switching the comments off takes them off the canvas; nothing else does between two frames.
	const bool bHasOpened = !std::exchange(bWasOpen, IsOpen());
	return bWasOpen && (bHasOpened || (!Comments.empty() && Stage->GetCanvas().GetChildrenCount() == 0));
}

void FOverlayRunner::ListWideTexts(const std::vector<FUpcomingText>& InTexts)
{
	WideTexts.clear();
	for (const FUpcomingText& Text : InTexts)
	{
		if (const double Width = BoundWidth(Text); Width > UsualWidth)
		{
			WideTexts.push_back({Text.Second, Width});
		}
	}
}

int64 FOverlayRunner::FindFirstSecond() const
{
	const double CanvasWidth = View.CanvasSize.X;
	const int64 Second = Stage->GetMediaTime() / ETimespan::TicksPerSecond;
	const double TimePerUnit = SlowestPace / std::max(Settings.Speed, LeastSpeed);
	const auto LookBack = [=](double InWidth)
	{
		return static_cast<int64>(std::ceil(TimePerUnit * (CanvasWidth + InWidth)));
	};
	int64 First = Second - LookBack(std::max(UsualWidth, CanvasWidth));
	for (const FWideText& Wide : WideTexts)
	{
		if (Wide.Second < First && Wide.Second + LookBack(Wide.Width * Settings.FontScale) >= Second)
		{
			First = Wide.Second;
		}
	}
	return std::clamp<int64>(First, 0, std::max<int64>(Second, 0));
}

void FOverlayRunner::BeginJump()
{
	JumpSecond.reset();
	if (!bLaidOut)
	{
		return;
	}
	ApplySettings();
	if (!IsOpen())
	{
		// The jump is made up for when the comments are switched on.
		UpdateScene(0.0);
		return;
	}
	// A frame before second 0 makes the overlay forget its second; a paused one would not look at the time.
	UUI_Danmaku& Overlay = Stage->GetOverlay();
	Overlay.Resume();
	Stage->Preroll();
	Overlay.Empty();
	JumpSecond = FindFirstSecond();
}

void FOverlayRunner::RunSlice(double InMaxSeconds)
{
	using FClock = std::chrono::steady_clock;
	const auto Begin = FClock::now();
	const int64 Target = Stage->GetMediaTime();
	const bool bHasPassed = IsJumping() && Target / ETimespan::TicksPerSecond < *JumpSecond - 1;
	if (bHasPassed || (IsJumping() && !IsOpen()))
	{
		BeginJump();
	}
	if (IsJumping())
	{
		DropSentComments();
	}
	while (IsJumping() && std::chrono::duration<double>(FClock::now() - Begin).count() < InMaxSeconds)
	{
		RunJumpSecond(Target);
	}
	Stage->SetMediaTime(Target);
}

void FOverlayRunner::RunJumpSecond(int64 InTargetTicks)
{
	const int64 Start = *JumpSecond * ETimespan::TicksPerSecond;
	const bool bLast = InTargetTicks < Start + ETimespan::TicksPerSecond;
	const double Played = static_cast<double>(std::max<int64>(InTargetTicks - Start, 0)) / ETimespan::TicksPerSecond;
	const double Whole = bLast ? Played : 1.0 + Excess;
	const double First = std::min(FirstStep, Whole);
	if (bSeedsEachSecond)
	{
		SeedSecond(*JumpSecond);
	}
	Stage->SetMediaTime(bLast ? InTargetTicks : Start);
	RunSilently(First);
	// No comment starts in this one.
	RunSilently(Whole - First);
	++*JumpSecond;
	if (bLast)
	{
		JumpSecond.reset();
		ApplyPause();
	}
}

void FOverlayRunner::RunSilently(double InSeconds)
{
	const double Seconds = InSeconds * Settings.Speed;
	Stage->RunFrame(static_cast<float>(Seconds), static_cast<float>(std::exchange(OwedTimerTime, 0.0)));
	UpdateScene(Seconds);
}

void FOverlayRunner::DropSentComments()
{
	// The viewer's, sent since the last slice: the schedule has them too, and brings them in their second.
	UCanvasPanel& Canvas = Stage->GetCanvas();
	for (int32 Index = Canvas.GetChildrenCount() - 1; Index >= 0; --Index)
	{
		auto* const Comment = static_cast<UUI_DanmakuNode*>(Canvas.GetChildAt(Index));
		if (Stage->IsViewerComment(*Comment) &&
			Comment->GetData().SpawnTime.GetTicks() / ETimespan::TicksPerSecond >= *JumpSecond)
		{
			Comment->RemoveFromParent();
		}
	}
}

} // namespace Flitmark
