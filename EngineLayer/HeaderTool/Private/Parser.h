#pragma once

#include "Model.h"

#include <string_view>

/** Reads the marked declarations of a header into Header, whose paths are set. Throws FHeaderError. */
void ParseHeader(std::string_view Source, FHeader& Header);
