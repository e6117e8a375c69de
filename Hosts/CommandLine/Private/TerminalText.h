#pragma once

#include <cstddef>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

namespace Flitmark
{

/** Columns of the terminal that a stream goes to; empty where it is not a terminal. */
std::optional<std::size_t> GetTerminalWidth(std::FILE* InStream);

/**
 * The text, or as much of its beginning as fits into InColumns, with an ellipsis. Characters that a terminal acts on, such
 * as escapes, and marks without end are dropped: anybody can write a comment.
 */
std::string CutToColumns(std::string_view InText, std::size_t InColumns);

} // namespace Flitmark
