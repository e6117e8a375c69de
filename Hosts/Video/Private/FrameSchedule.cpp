#include "FrameSchedule.h"

#include "VideoInput.h"

#include <limits>

namespace Flitmark
{

std::unique_ptr<FFrameSchedule> FFrameSchedule::Make(const FOverlayVideoOptions& InOptions,
													 const std::atomic<bool>& InCancel, std::string& OutError)
{
	std::unique_ptr<FFrameSchedule> Schedule(new FFrameSchedule());
	if (!InOptions.Like.empty())
	{
		return Schedule->Follow({InOptions.Like, InOptions.bAllowPlaylists}, InCancel, OutError) ? std::move(Schedule)
																								 : nullptr;
	}
	if (InOptions.Width <= 0 || InOptions.Height <= 0 || InOptions.RateNumerator <= 0 || InOptions.RateDenominator <= 0)
	{
		OutError = "size and frame rate must be above 0";
		return nullptr;
	}
	av_reduce(&Schedule->FrameRate.num, &Schedule->FrameRate.den, InOptions.RateNumerator, InOptions.RateDenominator,
			  std::numeric_limits<int>::max());
	Schedule->Base = av_inv_q(Schedule->FrameRate);
	Schedule->Picture = {InOptions.Width, InOptions.Height, 1.0, av_q2d(Schedule->FrameRate)};
	return Schedule;
}

bool FFrameSchedule::Follow(const FVideoFile& InFile, const std::atomic<bool>& InCancel, std::string& OutError)
{
	const auto Input = FVideoInput::Open(InFile, OutError, &InCancel);
	const auto Times =
		Input ? ScanFrameTimes(InFile, std::numeric_limits<int64>::max(), OutError, &InCancel) : std::nullopt;
	if (!Times || InCancel)
	{
		return false;
	}
	if (Times->Ticks.empty())
	{
		OutError = InFile.Path + ": its video has no frames; the file is empty or damaged";
		return false;
	}
	Picture = Input->Shape();
	Base = Input->Video().time_base;
	FrameRate = FrameRateOf(Input->Video());
	Space = Input->Video().codecpar->color_space;
	Ticks = Times->Ticks;
	Ticks.push_back(std::max(Times->EndTicks.value_or(0), Ticks.back() + 1));
	for (const int64 Each : Ticks)
	{
		Stamps.push_back(Input->ToTimestamp(Each));
	}
	return true;
}

std::optional<FScheduledFrame> FFrameSchedule::Frame(int64 InIndex) const
{
	if (Ticks.empty())
	{
		return FScheduledFrame{av_rescale_q(InIndex, Base, TickBase), InIndex, 1};
	}
	const size_t Index = static_cast<size_t>(InIndex);
	if (Index + 1 >= Ticks.size())
	{
		return std::nullopt;
	}
	return FScheduledFrame{Ticks[Index], Stamps[Index], Stamps[Index + 1] - Stamps[Index]};
}

double FFrameSchedule::EndSeconds() const
{
	return Ticks.empty() ? 0.0 : static_cast<double>(Ticks.back()) / static_cast<double>(TicksPerSecond);
}

} // namespace Flitmark
