#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Flitmark
{

/**
 * A file of about InSize bytes with comments as people write them, the same in every run; InFormat is a format's name.
 */
std::string GenerateFile(std::string_view InFormat, std::size_t InSize);

} // namespace Flitmark
