#pragma once

#include "Components/HorizontalBoxSlot.h"

/** Sets its children in a row. */
class ENGINELAYER_API UHorizontalBox : public UPanelWidget
{
	DECLARE_LAYER_CLASS(UHorizontalBox, UPanelWidget)

public:
	explicit UHorizontalBox(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	UHorizontalBoxSlot* AddChildToHorizontalBox(UWidget* Content)
	{
		return static_cast<UHorizontalBoxSlot*>(AddChild(Content));
	}

protected:
	UClass* GetSlotClass() const override { return UHorizontalBoxSlot::StaticClass(); }
};
