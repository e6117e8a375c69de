#include "Components/PanelWidget.h"

#include "Blueprint/WidgetObserver.h"
#include "Blueprint/WidgetTeardown.h"
#include "UObject/GeneratedCppIncludes.h"

#include <algorithm>

IMPLEMENT_LAYER_CLASS(UPanelSlot, "PanelSlot")
IMPLEMENT_LAYER_CLASS_FLAGS(UPanelWidget, "PanelWidget", CLASS_Abstract)

void UPanelSlot::VisitReferences(FReferenceCollector& Collector)
{
	Collector.AddReferencedObject(Parent);
	Collector.AddReferencedObject(Content);
}

UPanelSlot* UPanelWidget::AddChild(UWidget* Content)
{
	if (Content == nullptr || (!CanHaveMultipleChildren() && GetChildrenCount() > 0))
	{
		return nullptr;
	}
	Content->RemoveFromParent();
	UPanelSlot* Added = NewObject<UPanelSlot>(this, GetSlotClass());
	Added->Parent = this;
	Added->Content = Content;
	Added->IndexHint = Slots.Add(Added);
	Content->Slot = Added;
	if (IsConstructed() && !Content->IsConstructed())
	{
		Content->ConstructTree();
	}
	return Added;
}

bool UPanelWidget::RemoveChild(UWidget* Content)
{
	if (Content == nullptr || Content->Slot == nullptr)
	{
		return false;
	}
	for (int32 Index = std::min(Content->Slot->IndexHint, Slots.Num() - 1); Index >= 0; --Index)
	{
		if (Slots[Index] == Content->Slot)
		{
			return RemoveChildAt(Index);
		}
	}
	return false;
}

bool UPanelWidget::RemoveChildAt(int32 Index)
{
	if (!Slots.IsValidIndex(Index))
	{
		return false;
	}
	UPanelSlot* Removed = Slots[Index];
	UWidget* Content = Removed->Content;
	if (IWidgetObserver* Observer = IWidgetObserver::Get())
	{
		Observer->OnWidgetLeaving(*Content);
	}
	Slots.RemoveAt(Index);
	for (FCursor* Cursor = Cursors; Cursor != nullptr; Cursor = Cursor->Outer)
	{
		Cursor->Index -= Index < Cursor->Index ? 1 : 0;
	}
	Content->Slot = nullptr;
	Removed->Parent = nullptr;
	Removed->Content = nullptr;
	if (Content->IsConstructed())
	{
		FWidgetTeardown::Get().OnLeft(*Content);
	}
	return true;
}

void UPanelWidget::ClearChildren()
{
	for (int32 Index = GetChildrenCount() - 1; Index >= 0; --Index)
	{
		RemoveChildAt(Index);
	}
}

void UPanelWidget::Arrange(const FVector2f& InSize)
{
	Super::Arrange(InSize);
	for (const TObjectPtr<UPanelSlot>& Each : Slots)
	{
		Each->Content->Arrange(InSize);
	}
}

void UPanelWidget::TickTree(float InDeltaTime)
{
	if (!IsDisplayed())
	{
		return;
	}
	FCursor Cursor{0, Cursors};
	Cursors = &Cursor;
	while (Cursor.Index < Slots.Num())
	{
		UWidget* Child = Slots[Cursor.Index++]->Content;
		Child->TickTree(InDeltaTime);
	}
	Cursors = Cursor.Outer;
}

void UPanelWidget::ConstructTree()
{
	for (const TObjectPtr<UPanelSlot>& Each : Slots)
	{
		Each->Content->ConstructTree();
	}
	Super::ConstructTree();
}

void UPanelWidget::DestructTree()
{
	Super::DestructTree();
	// A copy: a widget may remove itself while it is torn down.
	const TArray<TObjectPtr<UPanelSlot>> Children = Slots;
	for (const TObjectPtr<UPanelSlot>& Each : Children)
	{
		if (Each->Content != nullptr)
		{
			Each->Content->DestructTree();
		}
	}
}

void UPanelWidget::VisitReferences(FReferenceCollector& Collector)
{
	Super::VisitReferences(Collector);
	for (const TObjectPtr<UPanelSlot>& Each : Slots)
	{
		Collector.AddReferencedObject(Each);
	}
}

FVector2D UPanelWidget::ComputeDesiredSize()
{
	FVector2D Largest = FVector2D::ZeroVector;
	for (const TObjectPtr<UPanelSlot>& Each : Slots)
	{
		Each->Content->ForceLayoutPrepass();
		const FVector2D Size = Each->Content->GetDesiredSize();
		Largest = FVector2D(std::max(Largest.X, Size.X), std::max(Largest.Y, Size.Y));
	}
	return Largest;
}
