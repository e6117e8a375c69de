#pragma once

#include "Components/PanelWidget.h"

/** A panel that sets its children in rows. Hosts that paint controls arrange them by themselves. */
class ENGINELAYER_API UWrapBox : public UPanelWidget
{
	DECLARE_LAYER_CLASS(UWrapBox, UPanelWidget)

public:
	explicit UWrapBox(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}
};
