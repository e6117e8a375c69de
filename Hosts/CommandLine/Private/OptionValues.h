#pragma once

#include "CoreMinimal.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace Flitmark
{

/** "1920x1080", each 0 or more, also with a fraction, and within what a canvas can be; empty for anything else. */
std::optional<FVector2f> ParseCanvasSize(std::string_view InText);

/** Whole numbers above 0 that a picture can be as wide and high as; empty for anything else. */
std::optional<std::pair<int32, int32>> ParsePictureSize(std::string_view InText);

/** "60", "29.97", or "30000/1001" frames per second as a fraction, up to 1000; empty for anything else. */
std::optional<std::pair<int32, int32>> ParseFrameRate(std::string_view InText);

/** "90", "+1:30.5" or "-0:05" as ticks of 100 ns, forward or back; empty for anything else and for more than a day. */
std::optional<int64> ParseOffset(std::string_view InText);
constexpr const char* OffsetRefusal = "is not a time of up to a day; try 90, +1:30 or -0:05.5";

} // namespace Flitmark
