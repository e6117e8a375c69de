#pragma once

#include "CoreTypes.h"
#include "Text/TextEngine.h"

#include <string>
#include <string_view>

namespace Flitmark
{

/** A number with up to three decimals. */
void AppendNumber(std::string& OutText, double InNumber);

/** `1:02:03.45`. InHundredths: 1/100 s, 0 or more. */
void AppendTime(std::string& OutText, int64 InHundredths);

/** `BBGGRR`. */
void AppendColor(std::string& OutText, FTextColor InColor);

/** `AA`, which is 00 for opaque. InAlpha: 255 for opaque. */
void AppendTransparency(std::string& OutText, uint8 InAlpha);

/**
 * Characters of a line as UTF-8 that shows as they are. bInStart, bInEnd: whether the line begins and ends with them, where
 * blanks would be cut off.
 */
void AppendLiteral(std::string& OutText, std::u32string_view InText, bool bInStart, bool bInEnd);

} // namespace Flitmark
