#pragma once

#include "Symbols.h"

#include <optional>

/** The type that the tokens of a declaration name; none where it cannot be reflected, and Fault says what to do instead. */
std::optional<FType> ReadType(const std::vector<FToken>& Spelling, const FSymbols& Symbols, std::string& Fault);
