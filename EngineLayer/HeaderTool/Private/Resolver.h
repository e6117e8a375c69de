#pragma once

#include "Symbols.h"

/**
 * Gives every property its type and every record its flags, and checks what a header alone cannot show. Appends each fault
 * to Errors as "FILE:LINE: message". Used: headers of modules that this one uses. Returns what is known: the engine layer's
 * classes and those of all these headers.
 */
FSymbols ResolveHeaders(std::vector<FHeader>& Headers, std::vector<FHeader>& Used, std::vector<std::string>& Errors);
