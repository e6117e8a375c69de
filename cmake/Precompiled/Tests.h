#pragma once

// What every GoogleTest program parses, once.

#include "Standard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
