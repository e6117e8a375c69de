#pragma once

#include "Components/PanelWidget.h"

/** A widget around one other. */
class ENGINELAYER_API UContentWidget : public UPanelWidget
{
	DECLARE_LAYER_CLASS(UContentWidget, UPanelWidget)

public:
	explicit UContentWidget(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	/** Replaces the content. */
	UPanelSlot* SetContent(UWidget* Content)
	{
		ClearChildren();
		return AddChild(Content);
	}
	UWidget* GetContent() const { return GetChildAt(0); }

protected:
	bool CanHaveMultipleChildren() const override { return false; }
};
