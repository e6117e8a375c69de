#pragma once

#include "Components/PanelWidget.h"
#include "Components/SlateWrapperTypes.h"
#include "Layout/Margin.h"
#include "Types/SlateEnums.h"

/** A child's place in a row. */
class ENGINELAYER_API UHorizontalBoxSlot : public UPanelSlot
{
	DECLARE_LAYER_CLASS(UHorizontalBoxSlot, UPanelSlot)

public:
	explicit UHorizontalBoxSlot(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	void SetPadding(FMargin InPadding) { Padding = InPadding; }
	FMargin GetPadding() const { return Padding; }
	void SetSize(FSlateChildSize InSize) { Size = InSize; }
	FSlateChildSize GetSize() const { return Size; }
	void SetHorizontalAlignment(EHorizontalAlignment InAlignment) { HorizontalAlignment = InAlignment; }
	EHorizontalAlignment GetHorizontalAlignment() const { return HorizontalAlignment; }
	void SetVerticalAlignment(EVerticalAlignment InAlignment) { VerticalAlignment = InAlignment; }
	EVerticalAlignment GetVerticalAlignment() const { return VerticalAlignment; }

private:
	FMargin Padding;
	FSlateChildSize Size;
	EHorizontalAlignment HorizontalAlignment = HAlign_Fill;
	EVerticalAlignment VerticalAlignment = VAlign_Fill;
};
