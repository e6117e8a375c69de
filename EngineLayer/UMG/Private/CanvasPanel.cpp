#include "Components/CanvasPanel.h"

#include "Blueprint/WidgetObserver.h"
#include "UObject/GeneratedCppIncludes.h"

#include <algorithm>

IMPLEMENT_LAYER_CLASS(UCanvasPanel, "CanvasPanel")
IMPLEMENT_LAYER_CLASS(UCanvasPanelSlot, "CanvasPanelSlot")

UCanvasPanelSlot* UCanvasPanel::AddChildToCanvas(UWidget* Content)
{
	return static_cast<UCanvasPanelSlot*>(AddChild(Content));
}

FVector2D UCanvasPanel::ComputeDesiredSize()
{
	FVector2D Extent = FVector2D::ZeroVector;
	for (int32 Index = 0; Index < GetChildrenCount(); ++Index)
	{
		UWidget* Child = GetChildAt(Index);
		Child->ForceLayoutPrepass();
		const FVector2D Position = static_cast<const UCanvasPanelSlot*>(Child->Slot.Get())->GetPosition();
		const FVector2D Size = Child->GetDesiredSize();
		Extent = FVector2D(std::max(Extent.X, Position.X + Size.X), std::max(Extent.Y, Position.Y + Size.Y));
	}
	return Extent;
}

void UCanvasPanelSlot::SetPosition(FVector2D InPosition)
{
	Position = InPosition;
	if (IWidgetObserver* Observer = IWidgetObserver::Get())
	{
		Observer->OnPositionSet(*this);
	}
}
