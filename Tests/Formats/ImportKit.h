#pragma once

#include "CoreTypes.h"
#include "Formats/CommentImport.h"

#include <string>
#include <string_view>

namespace Flitmark
{

/** Imports a text; a failure, or counts that do not add up, are the calling test's. */
FImportResult ImportText(std::string_view InText);

/** The same for what is to be refused; the error's text. */
std::string ImportRefused(std::string_view InText);

/** Each comment as one line: ticks, kind's letter (sTBRPX$U), points, colour, then the text in quotes. */
std::string Describe(const FImportResult& InResult);

/** Ids, post ids, users, names and dates, one comment a line. */
std::string DescribeOrigin(const FImportResult& InResult);

/** How many entries were skipped, `number sort`, one sort a line. */
std::string DescribeSkipped(const FImportResult& InResult);

/** Each fault as `line/entry reason`. */
std::string DescribeFaults(const FImportResult& InResult);

} // namespace Flitmark
