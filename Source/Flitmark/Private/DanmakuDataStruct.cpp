#include "DanmakuDataStruct.h"

static_assert(sizeof(EDanmakuMode) == sizeof(int32),
			  "The mode travels as a 32-bit value through documents and events.");
