#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace Flitmark
{

/** A label that is to stand above the place that it is about. */
struct FLabelWish
{
	/** Of the place, and how wide the label is. */
	double X = 0.0;
	double Width = 0.0;
};

/** Where it stands. */
struct FLabelPlace
{
	double Left = 0.0;
	/** From 0, the highest. */
	std::size_t Row = 0;
};

/**
 * Places labels in rows between two bounds, the earlier ones first, so that no two touch and none covers a line that goes
 * down from another label to its place. Empty for those without room.
 */
std::vector<std::optional<FLabelPlace>> PlaceLabels(const std::vector<FLabelWish>& InWishes, double InLeft,
													double InRight, std::size_t InNumRows);

} // namespace Flitmark
