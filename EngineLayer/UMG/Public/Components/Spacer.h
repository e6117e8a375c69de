#pragma once

#include "Components/Widget.h"

/** Takes up room and shows nothing. */
class ENGINELAYER_API USpacer : public UWidget
{
	DECLARE_LAYER_CLASS(USpacer, UWidget)

public:
	explicit USpacer(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	/** Slate units. */
	void SetSize(FVector2D InSize) { Size = InSize; }
	FVector2D GetSize() const { return Size; }

protected:
	FVector2D ComputeDesiredSize() override { return Size; }

private:
	FVector2D Size{1.0, 1.0};
};
