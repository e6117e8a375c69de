#pragma once

#include "CoreTypes.h"

#include <string>

/** UTF-8 bytes as UTF-16; each maximal invalid subpart becomes one U+FFFD. */
std::u16string DecodeUtf8(const uint8* Bytes, std::size_t Size);
