#pragma once

#include "Components/OverlaySlot.h"

/** Stacks its children on top of each other, the last one in front. */
class ENGINELAYER_API UOverlay : public UPanelWidget
{
	DECLARE_LAYER_CLASS(UOverlay, UPanelWidget)

public:
	explicit UOverlay(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	UOverlaySlot* AddChildToOverlay(UWidget* Content) { return static_cast<UOverlaySlot*>(AddChild(Content)); }

protected:
	UClass* GetSlotClass() const override { return UOverlaySlot::StaticClass(); }
};
