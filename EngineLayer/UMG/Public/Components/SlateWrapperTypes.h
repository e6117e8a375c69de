#pragma once

#include "CoreTypes.h"

/** Whether a widget is drawn, takes room and takes the pointer. The values are the engine's. */
enum class ESlateVisibility : uint8
{
	Visible,
	Collapsed,
	Hidden,
	HitTestInvisible,
	SelfHitTestInvisible,
};
