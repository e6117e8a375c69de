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
	/** At or above the slot's place in its panel: children that leave only move it down. */
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
	 * Takes the widget out of where it is and puts it in as the last child. Null, and nothing done, where the panel has its
	 * only child.
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
	/** The next child of a walk under way, which moves when a child before it leaves. */
	struct FCursor
	{
		int32 Index;
		FCursor* Outer;
	};

	TArray<TObjectPtr<UPanelSlot>> Slots;
	FCursor* Cursors = nullptr;
};
