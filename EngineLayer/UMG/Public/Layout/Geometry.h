#pragma once

#include "CoreMinimal.h"
#include "Rendering/SlateLayoutTransform.h"

/** Where a widget was at its last layout; only its size is kept. */
struct FGeometry
{
	/** A geometry without a parent. InLocalSize: slate units. */
	static FGeometry MakeRoot(const FVector2f& InLocalSize, const FSlateLayoutTransform&)
	{
		FGeometry Root;
		Root.Size = InLocalSize;
		return Root;
	}

	/** Slate units. */
	const FVector2f& GetLocalSize() const { return Size; }

	FVector2f Size = FVector2f::ZeroVector;
};
