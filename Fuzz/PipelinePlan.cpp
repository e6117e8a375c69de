#include "PipelinePlan.h"

#include "FuzzKit.h"

#include <algorithm>
#include <cmath>

namespace Flitmark
{

namespace
{

constexpr uint8 PlanMark = 1;

/** From InLeast to InMost, as likely in each octave. */
double TakeScaled(FFuzzBytes& InOutBytes, double InLeast, double InMost)
{
	return InLeast * std::pow(InMost / InLeast, InOutBytes.TakeBetween(0.0, 1.0));
}

FFilterOptions TakeFilter(FFuzzBytes& InOutBytes)
{
	const auto Choice = InOutBytes.Take<uint8>();
	FFilterOptions Options;
	if ((Choice & 1) != 0)
	{
		Options.Block = {"[0-9]+$", "^$", "(a|b)*c"};
	}
	if ((Choice & 2) != 0)
	{
		Options.BlockUsers = {"1", "u1", "/^a/"};
	}
	if ((Choice & 4) != 0)
	{
		Options.BlockFiles = {{"words", {{"e"}, {"x+"}, {"2"}, 0, {}}}};
	}
	if ((Choice & 8) != 0)
	{
		Options.Only = {ECommentKind::Scroll, ECommentKind::Bottom};
	}
	if ((Choice & 16) != 0)
	{
		Options.MergeSeconds = TakeScaled(InOutBytes, 0.1, FFilterOptions::MaxMergeSeconds);
	}
	if ((Choice & 32) != 0)
	{
		Options.MaxPerSecond = InOutBytes.Take<uint8>() + int64{1};
	}
	return Options;
}

/** A picture from one pixel to twice the largest screens, on a canvas as --scale gives it. */
FOverlayView TakeView(FFuzzBytes& InOutBytes)
{
	constexpr double MaxPixels = 16384.0;
	const FVector2D Pixels(std::round(TakeScaled(InOutBytes, 1.0, MaxPixels)),
						   std::round(TakeScaled(InOutBytes, 1.0, MaxPixels)));
	const double Aspect = InOutBytes.TakeOne<double>({1.0, 1.0, 1.0, 0.5, 64.0 / 45.0, 0.01, 100.0});
	const double Scale = InOutBytes.TakeOne<double>({0.0, 0.0, 0.0, 1.0, 2.0, 0.25, 0.01, 100.0});
	return FOverlayView::Cover(Pixels, Aspect, Scale > 0.0 ? Pixels.Y * Scale : FOverlayView::UsualHeight);
}

FOverlaySettings TakeSettings(FFuzzBytes& InOutBytes)
{
	FOverlaySettings Settings;
	Settings.Area = InOutBytes.TakeBetween(0.1, 1.0);
	Settings.FontScale = TakeScaled(InOutBytes, 0.1, 10.0);
	Settings.Speed = TakeScaled(InOutBytes, 0.1, 10.0);
	Settings.Opacity = InOutBytes.TakeBetween(0.0, 1.0);
	Settings.Offset =
		InOutBytes.TakeOne<int64>({0, 0, 0, 5'000'000, -5'000'000, 36'000'000'000, MAX_int64, MIN_int64 + 1});
	return Settings;
}

FFramePlan TakeFrame(FFuzzBytes& InOutBytes)
{
	const auto Choice = InOutBytes.Take<uint8>();
	FFramePlan Frame;
	// Most frames come one after the other.
	Frame.Event = Choice % 16 < 10 ? EFrameEvent::None : static_cast<EFrameEvent>(Choice % 16 - 10);
	constexpr double Seconds[] = {1.0 / 60.0, 1.0 / 24.0, 0.001, 0.0, 0.3, 1.0, 3.0, 10.0};
	Frame.Seconds = Seconds[Choice / 16 % 8];
	Frame.Target = InOutBytes.Take<uint8>();
	return Frame;
}

} // namespace

FPipelinePlan ReadPlan(const uint8* InData, std::size_t InSize)
{
	FFuzzBytes Bytes(InData, InSize);
	FPipelinePlan Plan;
	const bool bPlanned = InSize > 0 && InData[0] == PlanMark;
	if (bPlanned)
	{
		Bytes.Take<uint8>();
		const auto Choice = Bytes.Take<uint8>();
		Plan.Kinds = {(Choice & 1) == 0, (Choice & 2) == 0, (Choice & 4) == 0};
		Plan.bAnyText = (Choice & 8) != 0;
		Plan.bSeedsEachSecond = (Choice & 16) != 0;
		Plan.Seed = Bytes.Take<uint8>();
		const FFilterOptions Filter = TakeFilter(Bytes);
		std::string Error;
		Plan.Filter = Filter.IsEmpty() ? nullptr : FCommentFilter::Create(Filter, Error);
		Require(Error.empty(), "the filters are understood");
		std::ranges::generate(Plan.Views, [&Bytes] { return TakeView(Bytes); });
		std::ranges::generate(Plan.Settings, [&Bytes] { return TakeSettings(Bytes); });
		std::ranges::generate(Plan.Frames, [&Bytes] { return TakeFrame(Bytes); });
	}
	else
	{
		Plan.Views.fill(FOverlayView::Cover(FVector2D(1280.0, 720.0)));
		Plan.Frames.fill({EFrameEvent::None, 0, 0.3});
		Plan.Frames[6].Event = EFrameEvent::Jump;
		Plan.Frames[6].Target = 128;
	}
	Plan.Comments = ToBytes(Bytes.GetRest().data(), Bytes.GetRest().size());
	return Plan;
}

} // namespace Flitmark
