#pragma once

#include "CoreTypes.h"

/** The type of a JSON value. */
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
