#pragma once

#include "Formats/CommentDocument.h"
#include "Formats/ServiceComment.h"

#include <vector>

namespace Flitmark
{

/**
 * How many comments of one second the overlay is handed at most, the first ones of it: it makes a widget for each before
 * it looks for a lane. No screen has lanes for a hundredth of them.
 */
constexpr int32 MostPerSecond = 20'000;

/** Takes out what a second has beyond that; gives how many. */
int64 BoundCrowds(std::vector<FServiceComment>& InOutComments);

/** The same for our own document, which keeps its bytes if nothing is taken out. InOutDocument: what InOutText reads as. */
int64 BoundCrowds(FString& InOutText, FCommentDocument& InOutDocument);

} // namespace Flitmark
