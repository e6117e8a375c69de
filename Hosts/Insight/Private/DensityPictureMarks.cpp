#include "Insight/CommentDensity.h"
#include "Insight/CommentStats.h"
#include "Insight/CommentTerms.h"
#include "Formats/CommentTraits.h"
#include "Insight/DensityPicture.h"
#include "DensityPictureScale.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace Flitmark
{

namespace
{

/** What several comments say no further away than so many ticks. */
std::string FindLabel(std::span<const FServiceComment> InComments, int64 InMiddle, int64 InReach)
{
	std::vector<const FServiceComment*> Near;
	for (const FServiceComment& Comment : InComments)
	{
		if (IsReached(Comment) && std::abs(Comment.SpawnTicks - InMiddle) <= InReach)
		{
			Near.push_back(&Comment);
		}
	}
	const std::vector<FCommentTerm> Terms = FindTerms(Near, 1);
	return Terms.empty() ? std::string() : Terms.front().Text;
}

} // namespace

std::vector<FDensityMark> FindBusyMoments(std::span<const FServiceComment> InComments, int64 InDurationTicks,
										  std::size_t InMost)
{
	// So far apart that labels have room, and so high that they stand out.
	constexpr std::size_t DistanceShare = 18;
	constexpr float LeastOfHighest = 0.25f;
	constexpr float LeastOfMean = 1.5f;
	constexpr int64 ReachBins = 3;
	const FDensityBins Bins = FDensityBins::Choose(InDurationTicks);
	const std::vector<float> Curve =
		ComputeDensity(GatherSpawnTicks(InComments), Bins.GetTicks(), Bins.Num, Bins.Smoothing);
	const float Mean = std::accumulate(Curve.begin(), Curve.end(), 0.f) / static_cast<float>(Curve.size());
	std::vector<FDensityMark> Marks;
	for (const std::size_t Bin : FindPeaks(Curve, InMost, std::max<std::size_t>(Bins.Num / DistanceShare, 1)))
	{
		const float Highest = *std::ranges::max_element(Curve);
		if (Curve[Bin] >= LeastOfHighest * Highest && Curve[Bin] >= LeastOfMean * Mean)
		{
			const int64 BinTicks = Bins.Seconds * TicksPerSecond;
			const int64 Middle = static_cast<int64>(Bin) * BinTicks + BinTicks / 2;
			Marks.push_back({Middle, FindLabel(InComments, Middle, ReachBins * BinTicks)});
		}
	}
	return Marks;
}

} // namespace Flitmark
