#pragma once

#include "Model.h"

#include <string_view>

/** Reads a header's reflected declarations into Header, whose paths are already set. Throws FHeaderError. */
void ParseHeader(std::string_view Source, FHeader& Header);
