#pragma once

#include "CoreMinimal.h"

/** Where a widget stood at its last layout; reduced to its size. */
struct FGeometry
{
	/** Slate units. */
	const FVector2f& GetLocalSize() const { return Size; }

	FVector2f Size = FVector2f::ZeroVector;
};
