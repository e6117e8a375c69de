#pragma once

#include <string>
#include <string_view>

namespace Flitmark
{

/** For an SVG's text: marks of the language are escaped, and what XML does not allow is left out. */
std::string EscapeXml(std::string_view InText);

/** About how wide a text is in a common sans-serif font of 1 unit to the em. */
double GuessWidth(std::string_view InText);

/** The text, or as much of its beginning as is no wider than InWidth, with an ellipsis. */
std::string CutToWidth(std::string_view InText, double InWidth);

} // namespace Flitmark
