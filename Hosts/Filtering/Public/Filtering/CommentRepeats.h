#pragma once

#include "CoreTypes.h"
#include "Formats/ServiceComment.h"

#include <vector>

namespace Flitmark
{

/**
 * Takes out comments of a further file that an earlier one has already: of the same ID, time, and text. The first
 * InNumEarlier comments are the earlier files'; comments without an ID stay, and so does what repeats within one file.
 * Returns how many were taken out.
 */
int64 DropKnown(std::vector<FServiceComment>& InOutComments, std::size_t InNumEarlier);

} // namespace Flitmark
