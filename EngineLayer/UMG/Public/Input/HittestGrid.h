#pragma once

#include "CoreMinimal.h"

/** Which widget the pointer is over. Unused here. */
class FHittestGrid
{
public:
	/** Always true: the area is treated as new. */
	bool SetHittestArea(const FVector2f&, const FVector2f&) { return true; }
};
