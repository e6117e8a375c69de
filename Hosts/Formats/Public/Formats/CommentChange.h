#pragma once

#include "CoreTypes.h"
#include "Formats/ServiceComment.h"

namespace Flitmark
{

/**
 * Changes of a comment that its Source follows: the value that the overlay reads is replaced there, or added, and every
 * other byte stays. A Source that is not an object is emptied, so that the comment's own values are what counts.
 */
void SetText(FServiceComment& InOutComment, std::string InText);
void SetSpawnTicks(FServiceComment& InOutComment, int64 InTicks);

} // namespace Flitmark
