#pragma once

#include "Components/ContentWidget.h"
#include "Layout/Margin.h"

/** A widget with a background around another. */
class ENGINELAYER_API UBorder : public UContentWidget
{
	DECLARE_LAYER_CLASS(UBorder, UContentWidget)

public:
	explicit UBorder(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	void SetPadding(FMargin InPadding) { Padding = InPadding; }
	FMargin GetPadding() const { return Padding; }
	void SetBrushColor(FLinearColor InBrushColor) { BrushColor = InBrushColor; }
	FLinearColor GetBrushColor() const { return BrushColor; }

private:
	FMargin Padding{4.f, 2.f};
	FLinearColor BrushColor{1.f, 1.f, 1.f, 1.f};
};
