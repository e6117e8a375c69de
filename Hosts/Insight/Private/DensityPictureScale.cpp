#include "DensityPictureScale.h"

#include "Formats/CommentTraits.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Flitmark
{

int64 ChooseTimeStep(double InSeconds, std::size_t InMost)
{
	constexpr int64 Steps[] = {1,	2,	 5,	   10,	 15,   20,	 30,	60,	   120,	  300,
							   600, 900, 1200, 1800, 3600, 7200, 10800, 21600, 43200, 86400};
	const auto* const Found = std::ranges::find_if(
		Steps, [=](int64 InStep) { return InSeconds <= static_cast<double>(InStep) * static_cast<double>(InMost); });
	return Found != std::end(Steps) ? *Found : *std::prev(std::end(Steps));
}

double ChooseCountStep(double InTop, std::size_t InMost)
{
	for (double Power = 1.0;; Power *= 10.0)
	{
		for (const double Factor : {1.0, 2.0, 5.0})
		{
			if (InTop <= Power * Factor * static_cast<double>(InMost))
			{
				return Power * Factor;
			}
		}
	}
}

FDensityBins FDensityBins::Choose(int64 InDurationTicks)
{
	constexpr std::size_t MostBins = 300;
	const double Duration = std::max(1.0, static_cast<double>(InDurationTicks) / static_cast<double>(TicksPerSecond));
	FDensityBins Bins;
	Bins.Seconds = ChooseTimeStep(Duration, MostBins);
	Bins.Num = static_cast<std::size_t>(std::ceil(Duration / static_cast<double>(Bins.Seconds)));
	// A curve over few bins has nothing to spare.
	Bins.Smoothing = std::clamp(static_cast<double>(Bins.Num) / 80.0, 0.5, 1.8);
	return Bins;
}

int64 FDensityBins::GetTicks() const
{
	return static_cast<int64>(Num) * Seconds * TicksPerSecond;
}

} // namespace Flitmark
