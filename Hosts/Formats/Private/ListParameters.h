#pragma once

#include "Formats/ServiceComment.h"

#include <string_view>

namespace Flitmark
{

/** The modes of lists: 1, 2 and 3 scroll, 4 bottom, 5 top, 6 reverse, 7 positioned, 8 and 9 scripts. */
ECommentKind ToListKind(std::string_view InMode);

/**
 * Reads the comma-separated parameters of a list's entry into a comment: `seconds,mode,size,color,sent,pool,sender,id`,
 * or `id,0,milliseconds,mode,size,color,sent,pool,sender`. What is missing after the time stays as it is. False if the
 * time cannot be read.
 */
bool ReadListParameters(std::string_view InParameters, FServiceComment& OutComment);

/** Cleans the text and resolves what only lists write, depending on the comment's kind. */
void FinishListText(FServiceComment& InOutComment);

/** The normal size of lists. */
constexpr double ListNormalSize = 25.0;

} // namespace Flitmark
