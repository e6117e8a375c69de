#pragma once

#include "Components/CanvasPanelSlot.h"
#include "Components/PanelWidget.h"

/** A panel whose children stay where they are put. */
class ENGINELAYER_API UCanvasPanel : public UPanelWidget
{
	DECLARE_LAYER_CLASS(UCanvasPanel, UPanelWidget)

public:
	explicit UCanvasPanel(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	UCanvasPanelSlot* AddChildToCanvas(UWidget* Content);

	/**
	 * Sizes only the canvas. Children take their desired size when they are painted, so a layout costs the same however
	 * many there are.
	 */
	void Arrange(const FVector2f& InSize) override { UWidget::Arrange(InSize); }

protected:
	UClass* GetSlotClass() const override { return UCanvasPanelSlot::StaticClass(); }
	FVector2D ComputeDesiredSize() override;
};
