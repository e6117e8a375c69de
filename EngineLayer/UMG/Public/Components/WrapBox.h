#pragma once

#include "Components/PanelWidget.h"

/** A panel that sets its children in rows. Hosts that paint controls arrange them themselves. */
class ENGINELAYER_API UWrapBox : public UPanelWidget
{
	DECLARE_LAYER_CLASS(UWrapBox, UPanelWidget)

public:
	explicit UWrapBox(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	/** Room between the children, in slate units. */
	void SetInnerSlotPadding(FVector2D InPadding) { InnerSlotPadding = InPadding; }
	FVector2D GetInnerSlotPadding() const { return InnerSlotPadding; }

private:
	FVector2D InnerSlotPadding = FVector2D::ZeroVector;
};
