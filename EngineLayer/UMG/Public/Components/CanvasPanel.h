#pragma once

#include "Components/CanvasPanelSlot.h"
#include "Components/PanelWidget.h"

/** A panel whose children stand where they are put. */
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
	 * The canvas takes its size; its children take the size they wish for when they are painted, so that a layout costs
	 * the same whatever their number.
	 */
	void Arrange(const FVector2f& InSize) override { UWidget::Arrange(InSize); }

protected:
	UClass* GetSlotClass() const override { return UCanvasPanelSlot::StaticClass(); }
	FVector2D ComputeDesiredSize() override;
};
