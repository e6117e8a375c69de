#pragma once

#include "CoreTypes.h"

/** What a JSON value is. */
enum class EJson : uint8
{
	None,
	Null,
	String,
	Number,
	Boolean,
	Array,
	Object,
};
