#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Flitmark
{

/**
 * The value at the start of a text as valid JSON, if only its strings are wrong: raw line ends and tabs in them are
 * escaped, other control characters dropped, lone surrogates replaced, unknown escapes taken literally. OutEnd is where
 * the value ends in the text; false if its end cannot be found.
 */
bool RepairJsonStrings(std::string_view InText, std::string& OutRepaired, std::size_t& OutEnd);

} // namespace Flitmark
