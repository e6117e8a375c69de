#pragma once

#include "Symbols.h"

/**
 * Sets every property's type and every record's flags, and checks what can't be checked in a single header. Appends
 * each fault to Errors as "FILE:LINE: message". Used: headers of modules that this one uses. Returns all known symbols:
 * the engine layer's classes and the types in all these headers.
 */
FSymbols ResolveHeaders(std::vector<FHeader>& Headers, std::vector<FHeader>& Used, std::vector<std::string>& Errors);
