#pragma once

#include "Components/SlateWrapperTypes.h"
#include "Layout/Geometry.h"
#include "UObject/Object.h"

class UPanelSlot;
class UPanelWidget;

/** What can be instantiated in a widget tree. */
class ENGINELAYER_API UVisual : public UObject
{
	DECLARE_LAYER_CLASS(UVisual, UObject)

public:
	explicit UVisual(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}
};

/** Something on the screen. */
class ENGINELAYER_API UWidget : public UVisual
{
	DECLARE_LAYER_CLASS(UWidget, UVisual)

public:
	explicit UWidget(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	/** The panel's slot that holds the widget; null outside a panel. */
	TObjectPtr<UPanelSlot> Slot;

	UPanelWidget* GetParent() const;
	virtual void RemoveFromParent();

	virtual void SetVisibility(ESlateVisibility InVisibility) { Visibility = InVisibility; }
	ESlateVisibility GetVisibility() const { return Visibility; }
	/** Whether the widget itself is neither hidden nor collapsed. */
	bool IsDisplayed() const
	{
		return Visibility != ESlateVisibility::Hidden && Visibility != ESlateVisibility::Collapsed;
	}
	bool IsVisible() const { return IsDisplayed(); }

	virtual void SetIsEnabled(bool bInIsEnabled) { bIsEnabled = bInIsEnabled; }
	bool GetIsEnabled() const { return bIsEnabled; }

	/** Gives the widget keyboard focus. */
	void SetFocus();
	bool HasKeyboardFocus() const;
	/** Takes keyboard focus away if the widget has it; called by hosts. */
	void ClearFocus();

	/**
	 * Whether a viewer can act on the widget: it is displayed and enabled, and so is everything around it, across the
	 * bounds of user widgets.
	 */
	bool IsUsable() const;

	/** As of the last layout. */
	const FGeometry& GetCachedGeometry() const { return CachedGeometry; }

	/** Measures the widget and its contents at once, instead of at the next layout. */
	void ForceLayoutPrepass() { DesiredSize = ComputeDesiredSize(); }
	/** As last measured, in slate units. */
	FVector2D GetDesiredSize() const { return DesiredSize; }

	/** Whether the widget is in a displayed tree, constructed, and not yet torn down. */
	bool IsConstructed() const { return bIsConstructed; }

	/** The innermost user widget around this one; null if there is none. */
	class UUserWidget* GetOwningUserWidget() const;

	/** Layout: the widget takes its size. Hosts call this on the root; InSize: slate units. */
	virtual void Arrange(const FVector2f& InSize) { CachedGeometry.Size = InSize; }
	/** The frame's tick of this widget and its contents; InDeltaTime: seconds. */
	virtual void TickTree([[maybe_unused]] float InDeltaTime) {}
	/** The widget joined a displayed tree. */
	virtual void ConstructTree() { bIsConstructed = true; }
	/** The widget left the displayed tree for good. */
	virtual void DestructTree() { bIsConstructed = false; }

	void VisitReferences(FReferenceCollector& Collector) override;

protected:
	virtual FVector2D ComputeDesiredSize() { return FVector2D::ZeroVector; }

private:
	FGeometry CachedGeometry;
	FVector2D DesiredSize = FVector2D::ZeroVector;
	ESlateVisibility Visibility = ESlateVisibility::Visible;
	bool bIsEnabled = true;
	bool bIsConstructed = false;
};
