#pragma once

#include "Formats/ServiceComment.h"

#include <vector>

namespace Flitmark
{

/** By media time; comments of one time stay in their order. */
void OrderByTime(std::vector<FServiceComment>& InOutComments);

} // namespace Flitmark
