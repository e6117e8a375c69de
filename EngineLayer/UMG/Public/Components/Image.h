#pragma once

#include "Components/Widget.h"

/** A picture or a plain area; reduced to its tint. */
class ENGINELAYER_API UImage : public UWidget
{
	DECLARE_LAYER_CLASS(UImage, UWidget)

public:
	explicit UImage(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	virtual void SetColorAndOpacity(FLinearColor InColorAndOpacity) { ColorAndOpacity = InColorAndOpacity; }
	const FLinearColor& GetColorAndOpacity() const { return ColorAndOpacity; }

private:
	FLinearColor ColorAndOpacity{1.f, 1.f, 1.f, 1.f};
};
