#pragma once

#include <string_view>

namespace Flitmark
{

/* These look over JSON without reading it; npos where the text ends before. */

/** Behind the closing quote of the string whose opening quote stands at a place. */
std::size_t FindStringEnd(std::string_view InText, std::size_t InPlace);

/** Behind the object or list that is opened at a place. */
std::size_t FindBalancedEnd(std::string_view InText, std::size_t InPlace);

/** The next character that is no blank. */
std::size_t SkipJsonBlanks(std::string_view InText, std::size_t InPlace);

} // namespace Flitmark
