#pragma once

#include "CoreTypes.h"

#include <cstddef>

namespace Flitmark
{

/** The shortest usual step of time, in seconds, of which InSeconds hold no more than InMost. */
int64 ChooseTimeStep(double InSeconds, std::size_t InMost);

/** The least 1, 2 or 5 times a power of ten, and a whole number, of which InTop holds no more than InMost. */
double ChooseCountStep(double InTop, std::size_t InMost);

/** The bins in which a picture counts. */
struct FDensityBins
{
	/** A usual step of time. */
	int64 Seconds = 1;
	std::size_t Num = 1;
	/** Standard deviation in bins of the curve's smoothing. */
	double Smoothing = 1.0;

	/** So many whole bins that they cover the duration and are wide enough to be seen. */
	static FDensityBins Choose(int64 InDurationTicks);

	/** What the bins cover. */
	int64 GetTicks() const;
};

} // namespace Flitmark
