#pragma once

#include "CoreTypes.h"
#include "Formats/ServiceComment.h"

#include <vector>

namespace Flitmark
{

/**
 * Makes comments smaller, as services do, that have so many lines that an empty canvas has not the lanes for them. Kinds
 * must be settled. How many there were.
 */
uint64 FitIntoLanes(std::vector<FServiceComment>& InOutComments);

} // namespace Flitmark
