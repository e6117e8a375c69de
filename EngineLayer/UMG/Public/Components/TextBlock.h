#pragma once

#include "Components/Widget.h"
#include "Fonts/SlateFontInfo.h"
#include "Styling/SlateColor.h"

/** Shows a text. */
class ENGINELAYER_API UTextBlock : public UWidget
{
	DECLARE_LAYER_CLASS(UTextBlock, UWidget)

public:
	explicit UTextBlock(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	virtual void SetText(FText InText) { Text = std::move(InText); }
	FText GetText() const { return Text; }
	void SetFont(FSlateFontInfo InFontInfo) { Font = InFontInfo; }
	const FSlateFontInfo& GetFont() const { return Font; }
	void SetColorAndOpacity(FSlateColor InColorAndOpacity) { ColorAndOpacity = InColorAndOpacity; }
	FSlateColor GetColorAndOpacity() const { return ColorAndOpacity; }

protected:
	FVector2D ComputeDesiredSize() override;

private:
	FText Text;
	FSlateFontInfo Font;
	FSlateColor ColorAndOpacity;
};
