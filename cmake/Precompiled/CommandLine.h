#pragma once

// What the commands parse, once where FLITMARK_PRECOMPILE is on.

#include "Standard.h"

#include <CLI/CLI.hpp>
