#pragma once

#include "Components/PanelWidget.h"

/** A child's place on a canvas: its top-left corner; anchors and alignment stay at the top left. */
class ENGINELAYER_API UCanvasPanelSlot : public UPanelSlot
{
	DECLARE_LAYER_CLASS(UCanvasPanelSlot, UPanelSlot)

public:
	explicit UCanvasPanelSlot(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	/** Slate units from the canvas's top-left corner. */
	void SetPosition(FVector2D InPosition);
	FVector2D GetPosition() const { return Position; }

	/** The child takes its desired size. */
	void SetAutoSize(bool InbAutoSize) { bAutoSize = InbAutoSize; }
	bool GetAutoSize() const { return bAutoSize; }

private:
	FVector2D Position = FVector2D::ZeroVector;
	bool bAutoSize = false;
};
