#pragma once

// What the player parses, once where FLITMARK_PRECOMPILE is on.

#include "Standard.h"

#include <QtCore>
#include <QtQuick>
