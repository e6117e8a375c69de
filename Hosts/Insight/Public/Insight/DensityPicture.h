#pragma once

#include "CoreTypes.h"
#include "Formats/ServiceComment.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace Flitmark
{

/** A moment that is pointed out. */
struct FDensityMark
{
	int64 Ticks = 0;
	/** What there is to say about it, UTF-8; long labels are cut. */
	std::string Label;
};

/** What a picture of the density over time shows. */
struct FDensityPicture
{
	std::string Title;
	/** One line below the title. */
	std::string Subtitle;

	/** Media times of the comments, and of the axis's end, in ticks of 100 ns. */
	std::vector<int64> SpawnTicks;
	int64 DurationTicks = 0;

	/** The most important first: a label for which there is no room is left out. */
	std::vector<FDensityMark> Marks;
};

/**
 * The moments at which most is said, the busiest first, with what is said there; none where it is hardly busier than
 * elsewhere. InDurationTicks: of the picture that they are for.
 */
std::vector<FDensityMark> FindBusyMoments(std::span<const FServiceComment> InComments, int64 InDurationTicks,
										  std::size_t InMost);

/** An SVG picture, 1200 x 400, on a light ground; texts are escaped, and no font or other file is needed. */
std::string DrawDensityPicture(const FDensityPicture& InPicture);

} // namespace Flitmark
