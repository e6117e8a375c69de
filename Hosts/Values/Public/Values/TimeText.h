#pragma once

#include "Misc/Timespan.h"

#include <optional>
#include <string>
#include <string_view>

namespace Flitmark
{

/** A plain decimal number of 0 or more that is all of the text: no sign, no exponent, no "inf" or "nan". */
std::optional<double> ParseDecimal(std::string_view InText);

/** "90", "90.5", "1:30" or "0:01:30.25" as seconds, below 10^9; empty for anything else. */
std::optional<double> ParseTime(std::string_view InText);

/** "1:05", or "1:01:05" from an hour on, without fractions; "0:00" for what is not a time. */
std::string FormatTime(double InSeconds);
std::string FormatTime(FTimespan InTime);

} // namespace Flitmark
