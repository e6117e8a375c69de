#pragma once

#include <string>
#include <string_view>

namespace Flitmark
{

/**
 * Makes a text valid UTF-8 with LF line ends: wrong bytes become U+FFFD, CR LF and CR become LF, control characters other
 * than LF and TAB are dropped.
 */
void CleanText(std::string& InOutText);

/** Copies only once if there is nothing to clean. */
std::string MakeCleanText(std::string_view InText);

/** Lists write `/n` for a line break. */
void BreakLines(std::string& InOutText);

bool IsUtf8(std::string_view InText);

/** Wrong bytes become U+FFFD; nothing else changes. */
void MakeUtf8(std::string& InOutText);

} // namespace Flitmark
