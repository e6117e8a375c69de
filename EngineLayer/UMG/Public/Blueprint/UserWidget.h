#pragma once

#include "Components/Widget.h"
#include "Templates/SubclassOf.h"

class UWidgetBlueprintGeneratedClass;

/** A widget made of a widget blueprint's tree, with a class of its own behind it. */
class ENGINELAYER_API UUserWidget : public UWidget
{
	DECLARE_LAYER_CLASS(UUserWidget, UWidget)

public:
	explicit UUserWidget(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	/** Makes a widget that belongs to the user widget around InOwner; null for a class that can't be made. */
	static UUserWidget* CreateWidgetInstance(UWidget& InOwner, TSubclassOf<UUserWidget> InClass, FName InName);
	/** Makes a widget that belongs to a world alone: a root. */
	static UUserWidget* CreateWidgetInstance(UWorld& InOwner, TSubclassOf<UUserWidget> InClass, FName InName);

	/** The widget of the tree with that name; null without one. */
	UWidget* GetWidgetFromName(FName InName) const;
	UWidget* GetRootWidget() const { return RootWidget; }

	void Arrange(const FVector2f& InSize) override;
	void TickTree(float InDeltaTime) override;
	void ConstructTree() override;
	void DestructTree() override;
	void VisitReferences(FReferenceCollector& Collector) override;

	/** The pointer comes and goes; hosts call them. Nothing where the widget is not usable. */
	void PointerEnter();
	void PointerLeave();

protected:
	/** Once, when the tree is made and bound. */
	virtual void NativeOnInitialized() {}
	/** In the designer too, before NativeConstruct. */
	virtual void NativePreConstruct() {}
	/** Each time the widget joins a displayed tree. */
	virtual void NativeConstruct() {}
	/** Each time the widget was taken out of a displayed tree, or the tree goes away. */
	virtual void NativeDestruct() {}
	/** Each frame while the widget is displayed; InDeltaTime: seconds. */
	virtual void NativeTick([[maybe_unused]] const FGeometry& MyGeometry, [[maybe_unused]] float InDeltaTime) {}
	virtual void NativeOnMouseEnter(const FGeometry& InGeometry, const struct FPointerEvent& InMouseEvent);
	virtual void NativeOnMouseLeave(const struct FPointerEvent& InMouseEvent);

	/** Lets the widget be ticked; here every displayed one is. */
	void UpdateCanTick() {}

	FVector2D ComputeDesiredSize() override;

private:
	friend class UWidgetBlueprintGeneratedClass;
	static UUserWidget* Create(UObject& InOuter, UClass* InClass, FName InName);

	TObjectPtr<UWidget> RootWidget;
};

/** Makes a user widget of InClass; the owner is a widget or a world. */
template <class WidgetT, class OwnerType>
WidgetT* CreateWidget(OwnerType* InOwner, TSubclassOf<UUserWidget> InClass = WidgetT::StaticClass(),
					  FName InName = NAME_None)
{
	return InOwner != nullptr ? Cast<WidgetT>(UUserWidget::CreateWidgetInstance(*InOwner, InClass, InName)) : nullptr;
}
