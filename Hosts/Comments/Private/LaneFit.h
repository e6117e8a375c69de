#pragma once

#include "CoreTypes.h"
#include "Formats/ServiceComment.h"

#include <vector>

namespace Flitmark
{

/**
 * Makes comments of so many lines that no canvas has the lanes for them as small as it takes, which is what services do,
 * too. Kinds must be settled. How many comments became smaller.
 */
uint64 FitIntoLanes(std::vector<FServiceComment>& InOutComments);

} // namespace Flitmark
