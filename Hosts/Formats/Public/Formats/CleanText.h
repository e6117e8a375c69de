#pragma once

#include <string>
#include <string_view>

namespace Flitmark
{

/**
 * Well-formed UTF-8 with lines parted by LF: wrong bytes become U+FFFD, CR LF and CR become LF, control characters other
 * than LF and TAB go.
 */
void CleanText(std::string& InOutText);

/** Copied only once where nothing is to be cleaned. */
std::string MakeCleanText(std::string_view InText);

/** Lists write `/n` for a line break. */
void BreakLines(std::string& InOutText);

bool IsUtf8(std::string_view InText);

/** Wrong bytes become U+FFFD; nothing else changes. */
void MakeUtf8(std::string& InOutText);

} // namespace Flitmark
