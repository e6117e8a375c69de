#pragma once

#include <string>
#include <string_view>

namespace Flitmark
{

/**
 * The text of a paid comment, "Ann (30): Well done"; what is missing is left out. InAmount: as the file has it, with or
 * without a currency. All are taken as they are, UTF-8 or not.
 */
std::string MakePaidText(std::string_view InSender, std::string_view InAmount, std::string_view InWords);

} // namespace Flitmark
