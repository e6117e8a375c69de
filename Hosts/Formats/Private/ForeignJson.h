#pragma once

#include <string>
#include <string_view>

namespace Flitmark
{

/** DescribeForeign for the beginning of a JSON text. */
std::string DescribeForeignJson(std::string_view InText);

} // namespace Flitmark
