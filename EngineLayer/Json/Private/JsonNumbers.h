#pragma once

#include "Containers/UnrealString.h"
#include "CoreTypes.h"

/**
 * The decimal number that the text begins with (an optional '-', digits, fraction, exponent), as the nearest double;
 * infinity if it's too large for one, 0 if there is none.
 */
double ParseDecimal(const TCHAR* Begin, const TCHAR* End);

/** Six fractional digits, less trailing zeros (and the dot if none is left); "inf" for infinity. */
FString FormatDecimal(double Number);
