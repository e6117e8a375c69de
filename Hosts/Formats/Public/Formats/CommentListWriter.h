#pragma once

#include "Formats/CommentDocumentWriter.h"

namespace Flitmark
{

/**
 * Whether a comment can be written as part of an XML list: the overlay serves its kind, and it has a size and a color that
 * can be seen, for a list can't say otherwise.
 */
bool CanBeListed(const FServiceComment& InComment);

/**
 * Writes the comments that can be listed as an XML list, UTF-8, one a line. Reading it gives the same times, kinds, sizes,
 * colors, and texts, except that a list has no transparency and takes `/n` for a line break: an invisible character keeps
 * the two letters apart. False where the output stopped.
 */
bool WriteCommentList(std::span<const FServiceComment> InComments, const FTextOutput& InOutput);

} // namespace Flitmark
