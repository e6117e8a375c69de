#pragma once

#include "CoreTypes.h"
#include "Formats/CommentImport.h"

#include <string>
#include <string_view>

namespace Flitmark
{

/** Imports a text; fails the calling test on an error, or if the counts do not add up. */
FImportResult ImportText(std::string_view InText);

/** The same for a text that must be refused; returns the error's text. */
std::string ImportRefused(std::string_view InText);

/** Each comment as one line: ticks, kind's letter (sTBRPX$U), points, color, then the text in quotes. */
std::string Describe(const FImportResult& InResult);

/** Ids, post ids, users, names and dates, one comment a line. */
std::string DescribeOrigin(const FImportResult& InResult);

/** How many entries were skipped, as `number kind`, one kind a line. */
std::string DescribeSkipped(const FImportResult& InResult);

/** Each fault as `line/entry reason`. */
std::string DescribeFaults(const FImportResult& InResult);

} // namespace Flitmark
