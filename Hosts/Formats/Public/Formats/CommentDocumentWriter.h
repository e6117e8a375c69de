#pragma once

#include "Formats/ServiceComment.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace Flitmark
{

/** Takes a piece of a text; false stops the writing. */
using FTextOutput = std::function<bool(std::string_view InPiece)>;

/**
 * Writes our document: UTF-8, one comment a line, those with a Source as it stands there. A kind that our document does
 * not have is written as mode 3, which is not shown: settle kinds before (KindPolicy.h). False where the output stopped.
 */
bool WriteCommentDocument(std::span<const FServiceComment> InComments, const FTextOutput& InOutput);

/** The same as one string. */
std::string WriteCommentDocument(std::span<const FServiceComment> InComments);

} // namespace Flitmark
