#pragma once

#include "CoreTypes.h"
#include "Formats/ServiceComment.h"

namespace Flitmark
{

/**
 * Changes of a comment that its Source follows: the one member is written anew there, all others stay as they are
 * written. A Source that cannot be read is emptied, so that the comment's own values are what counts.
 */
void SetText(FServiceComment& InOutComment, std::string InText);
void SetSpawnTicks(FServiceComment& InOutComment, int64 InTicks);

} // namespace Flitmark
