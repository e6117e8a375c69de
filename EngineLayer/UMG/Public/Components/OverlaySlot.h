#pragma once

#include "Components/PanelWidget.h"
#include "Layout/Margin.h"
#include "Types/SlateEnums.h"

/** A child's place in the stack. */
class ENGINELAYER_API UOverlaySlot : public UPanelSlot
{
	DECLARE_LAYER_CLASS(UOverlaySlot, UPanelSlot)

public:
	explicit UOverlaySlot(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	void SetPadding(FMargin InPadding) { Padding = InPadding; }
	FMargin GetPadding() const { return Padding; }
	void SetHorizontalAlignment(EHorizontalAlignment InAlignment) { HorizontalAlignment = InAlignment; }
	EHorizontalAlignment GetHorizontalAlignment() const { return HorizontalAlignment; }
	void SetVerticalAlignment(EVerticalAlignment InAlignment) { VerticalAlignment = InAlignment; }
	EVerticalAlignment GetVerticalAlignment() const { return VerticalAlignment; }

private:
	FMargin Padding;
	EHorizontalAlignment HorizontalAlignment = HAlign_Left;
	EVerticalAlignment VerticalAlignment = VAlign_Top;
};
