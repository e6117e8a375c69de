#pragma once

#include <string_view>

namespace Flitmark
{

/* These scan JSON without parsing it; npos if the text ends first. */

/** Just past the string whose opening quote is at InOffset. */
std::size_t FindStringEnd(std::string_view InText, std::size_t InOffset);

/** Just past the object or list that opens at InOffset. */
std::size_t FindBalancedEnd(std::string_view InText, std::size_t InOffset);

/** The next character that is not a blank. */
std::size_t SkipJsonBlanks(std::string_view InText, std::size_t InOffset);

} // namespace Flitmark
