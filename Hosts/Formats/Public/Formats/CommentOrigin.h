#pragma once

#include "Formats/ServiceComment.h"

namespace Flitmark
{

/**
 * Reads from a comment's Source what showing and filtering it do not need: ID, post, and date. Does nothing
 * for comments of other formats, which have them.
 */
void ReadOrigin(FServiceComment& InOutComment);

} // namespace Flitmark
