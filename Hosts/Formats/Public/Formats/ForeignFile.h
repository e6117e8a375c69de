#pragma once

#include <string>
#include <string_view>

namespace Flitmark
{

/**
 * Why a file is not read as comments, for people: what it looks like instead, as in "is a video (MP4), ...", and what to
 * do where that is clear. InHead: its first DetectionSize bytes.
 */
std::string DescribeForeign(std::string_view InHead);

} // namespace Flitmark
