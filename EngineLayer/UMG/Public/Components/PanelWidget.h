#pragma once

#include "Components/Widget.h"

/** One child's place in a panel. */
class ENGINELAYER_API UPanelSlot : public UVisual
{
	DECLARE_LAYER_CLASS(UPanelSlot, UVisual)

public:
	explicit UPanelSlot(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	TObjectPtr<UPanelWidget> Parent;
	TObjectPtr<UWidget> Content;

	void VisitReferences(FReferenceCollector& Collector) override;

private:
	friend class UPanelWidget;
	/** An upper bound for the slot's index in its panel: children that leave only lower it. */
	int32 IndexHint = 0;
};

/** A widget that holds others. */
class ENGINELAYER_API UPanelWidget : public UWidget
{
	DECLARE_LAYER_CLASS(UPanelWidget, UWidget)

public:
	explicit UPanelWidget(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	int32 GetChildrenCount() const { return Slots.Num(); }
	UWidget* GetChildAt(int32 Index) const { return Slots.IsValidIndex(Index) ? Slots[Index]->Content.Get() : nullptr; }
	bool HasChild(const UWidget* Content) const { return Content != nullptr && Content->GetParent() == this; }

	/**
	 * Moves the widget here as the last child. Does nothing and returns null if the panel can hold no more children.
	 */
	UPanelSlot* AddChild(UWidget* Content);
	bool RemoveChild(UWidget* Content);
	bool RemoveChildAt(int32 Index);
	/** From the last child to the first, as the engine does. */
	virtual void ClearChildren();

	void Arrange(const FVector2f& InSize) override;
	void TickTree(float InDeltaTime) override;
	void ConstructTree() override;
	void DestructTree() override;
	void VisitReferences(FReferenceCollector& Collector) override;

protected:
	virtual bool CanHaveMultipleChildren() const { return true; }
	virtual UClass* GetSlotClass() const { return UPanelSlot::StaticClass(); }
	FVector2D ComputeDesiredSize() override;

private:
	/** The next child of an iteration under way; shifts when a child before it leaves. */
	struct FCursor
	{
		int32 Index;
		FCursor* Outer;
	};

	TArray<TObjectPtr<UPanelSlot>> Slots;
	FCursor* Cursors = nullptr;
};
