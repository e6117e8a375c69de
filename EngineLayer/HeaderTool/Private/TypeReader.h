#pragma once

#include "Symbols.h"

#include <optional>

/** The type that a declaration's tokens name. Empty if it can't be reflected; Fault then says what to do instead. */
std::optional<FType> ReadType(const std::vector<FToken>& Spelling, const FSymbols& Symbols, std::string& Fault);
