#include "Insight/CommentDensity.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace Flitmark
{

namespace
{

/** One side of the bell, from its middle on; what lies beyond three standard deviations does not show. */
std::vector<double> MakeBell(double InSmoothing, std::size_t InMostBins)
{
	const auto Radius =
		static_cast<std::size_t>(std::min(std::ceil(3.0 * InSmoothing), static_cast<double>(InMostBins)));
	std::vector<double> Bell(Radius + 1);
	for (std::size_t Distance = 0; Distance < Bell.size(); ++Distance)
	{
		const double Deviations = static_cast<double>(Distance) / InSmoothing;
		Bell[Distance] = std::exp(-0.5 * Deviations * Deviations);
	}
	return Bell;
}

std::vector<float> Smooth(const std::vector<float>& InCounts, double InSmoothing)
{
	const std::vector<double> Bell = MakeBell(InSmoothing, InCounts.size());
	std::vector<float> Result(InCounts.size());
	for (std::size_t Bin = 0; Bin < InCounts.size(); ++Bin)
	{
		double Sum = 0.0;
		double Weights = 0.0;
		const std::size_t Begin = Bin >= Bell.size() ? Bin - Bell.size() + 1 : 0;
		const std::size_t End = std::min(InCounts.size(), Bin + Bell.size());
		for (std::size_t Other = Begin; Other < End; ++Other)
		{
			const double Weight = Bell[Other > Bin ? Other - Bin : Bin - Other];
			Sum += Weight * static_cast<double>(InCounts[Other]);
			Weights += Weight;
		}
		Result[Bin] = static_cast<float>(Sum / Weights);
	}
	return Result;
}

} // namespace

std::vector<float> ComputeDensity(std::span<const int64> InSpawnTicks, int64 InDurationTicks, std::size_t InNumBins,
								  double InSmoothing)
{
	if (InNumBins == 0 || InDurationTicks <= 0)
	{
		return {};
	}
	std::vector<float> Counts(InNumBins, 0.f);
	const double BinsPerTick = static_cast<double>(InNumBins) / static_cast<double>(InDurationTicks);
	for (const int64 Ticks : InSpawnTicks)
	{
		if (Ticks >= 0 && Ticks <= InDurationTicks)
		{
			const auto Bin = static_cast<std::size_t>(static_cast<double>(Ticks) * BinsPerTick);
			Counts[std::min(Bin, InNumBins - 1)] += 1.f;
		}
	}
	return InSmoothing > 0.0 ? Smooth(Counts, InSmoothing) : Counts;
}

std::vector<std::size_t> FindPeaks(std::span<const float> InDensity, std::size_t InMost, std::size_t InDistance)
{
	std::vector<std::size_t> Order(InDensity.size());
	std::iota(Order.begin(), Order.end(), std::size_t(0));
	std::ranges::stable_sort(Order, std::ranges::greater(),
							 [InDensity](std::size_t InBin) { return InDensity[InBin]; });
	std::vector<std::size_t> Peaks;
	for (const std::size_t Bin : Order)
	{
		if (Peaks.size() == InMost || !(InDensity[Bin] > 0.f))
		{
			break;
		}
		const bool bRises = Bin == 0 || InDensity[Bin] >= InDensity[Bin - 1];
		const bool bFalls = Bin + 1 == InDensity.size() || InDensity[Bin] >= InDensity[Bin + 1];
		const auto IsNear = [Bin, InDistance](std::size_t InPeak)
		{
			return (InPeak > Bin ? InPeak - Bin : Bin - InPeak) < InDistance;
		};
		if (bRises && bFalls && std::ranges::none_of(Peaks, IsNear))
		{
			Peaks.push_back(Bin);
		}
	}
	return Peaks;
}

} // namespace Flitmark
