#pragma once

#include "Containers/UnrealString.h"
#include "CoreTypes.h"

/**
 * The decimal number at the start of the text (an optional '-', digits, fraction, exponent), as the nearest double;
 * infinity if it's too large for one, 0 if there is none.
 */
double ParseDecimal(const TCHAR* Begin, const TCHAR* End);

/** Up to six fractional digits, without trailing zeros (or the dot if none are left); "inf" for infinity. */
FString FormatDecimal(double Number);
