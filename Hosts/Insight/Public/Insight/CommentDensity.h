#pragma once

#include "CoreTypes.h"

#include <cstddef>
#include <span>
#include <vector>

namespace Flitmark
{

/**
 * How many comments come when: one value a bin, the bins being InNumBins equal parts of 0 to InDurationTicks; a comment
 * at the very end is in the last one, those outside are in none. Empty where there are no bins or no duration.
 *
 * InSmoothing: standard deviation in bins of the bell curve by which the counts are smoothed, 0 for the counts
 * themselves. At the ends the bell is cut and its rest weighs more, so that the curve does not sink there.
 */
std::vector<float> ComputeDensity(std::span<const int64> InSpawnTicks, int64 InDurationTicks, std::size_t InNumBins,
								  double InSmoothing);

/**
 * Bins at which the curve has its tops, from the highest on: at most InMost, and InDistance bins apart. The slopes of a
 * top that is too near to a higher one are none. Bins of 0 are none.
 */
std::vector<std::size_t> FindPeaks(std::span<const float> InDensity, std::size_t InMost, std::size_t InDistance);

} // namespace Flitmark
