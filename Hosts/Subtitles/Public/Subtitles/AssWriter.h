#pragma once

#include "Formats/CommentDocumentWriter.h"
#include "Subtitles/PlacedComments.h"
#include "Text/TextEngine.h"

namespace Flitmark
{

/**
 * Writes comments as subtitles in the ASS format: UTF-8, one event a line of a comment, in the units of the canvas, whose
 * size must be whole. An event's position is where the text begins so that its letters stand where FTextEngine draws them.
 * InEngine: with the fonts that the comments were measured with. InOpacity: from 0 to 1. False where the output stopped.
 */
bool WriteAss(const FPlacedComments& InComments, FTextEngine& InEngine, double InOpacity, const FTextOutput& InOutput);

} // namespace Flitmark
