#pragma once

#include "Formats/CommentImport.h"

#include <cstddef>
#include <string>

namespace Flitmark
{

/** A file of about so many bytes with comments as people write them; the same in every run. */
std::string GenerateFile(ECommentFormat InFormat, std::size_t InSize);

} // namespace Flitmark
