#pragma once

#include "Components/VerticalBoxSlot.h"

/** Sets its children in a column. */
class ENGINELAYER_API UVerticalBox : public UPanelWidget
{
	DECLARE_LAYER_CLASS(UVerticalBox, UPanelWidget)

public:
	explicit UVerticalBox(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	UVerticalBoxSlot* AddChildToVerticalBox(UWidget* Content)
	{
		return static_cast<UVerticalBoxSlot*>(AddChild(Content));
	}

protected:
	UClass* GetSlotClass() const override { return UVerticalBoxSlot::StaticClass(); }
};
