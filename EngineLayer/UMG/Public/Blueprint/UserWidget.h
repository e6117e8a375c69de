#pragma once

#include "Components/Widget.h"
#include "Templates/SubclassOf.h"
#include "Templates/SharedPointer.h"
#include "UObject/ScriptDelegates.h"

#include <memory>

class SWidget;
class UWidgetTree;

/** A widget made of others: a widget blueprint's tree, or one that its own class builds. */
class ENGINELAYER_API UUserWidget : public UWidget
{
	DECLARE_LAYER_CLASS(UUserWidget, UWidget)

public:
	explicit UUserWidget(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	/** The widgets inside; made by Initialize at the latest. */
	TObjectPtr<UWidgetTree> WidgetTree;

	/** Makes the tree and notifies the class. Only the first call does, and returns true. CreateWidget calls it. */
	virtual bool Initialize();

	/** Makes a widget in the tree of the user widget around InOwner; null for a class that can't be instantiated. */
	static UUserWidget* CreateWidgetInstance(UWidget& InOwner, TSubclassOf<UUserWidget> InClass, FName InName);
	static UUserWidget* CreateWidgetInstance(UWidgetTree& InOwner, TSubclassOf<UUserWidget> InClass, FName InName);
	/** Makes a widget that belongs only to a world: a root. */
	static UUserWidget* CreateWidgetInstance(UWorld& InOwner, TSubclassOf<UUserWidget> InClass, FName InName);

	/** The widget in the tree with that name; null if there is none. */
	UWidget* GetWidgetFromName(FName InName) const;
	UWidget* GetRootWidget() const;

	/**
	 * Puts the widget on a screen: constructs it if needed, until the last reference is released. The widget must live
	 * until then.
	 */
	TSharedRef<SWidget> TakeWidget();

	void Arrange(const FVector2f& InSize) override;
	void TickTree(float InDeltaTime) override;
	void ConstructTree() override;
	void DestructTree() override;
	void VisitReferences(FReferenceCollector& Collector) override;

	/** The pointer enters or leaves; called by hosts. Do nothing if the widget is not usable. */
	void PointerEnter();
	void PointerLeave();

protected:
	/** For a class without a blueprint: the time to build its tree. WidgetTree is null before. */
	virtual void InitializeNativeClassData() {}
	/** Once, when the tree is made and bound. */
	virtual void NativeOnInitialized() {}
	/** In the designer too, before NativeConstruct. */
	virtual void NativePreConstruct() {}
	/** Each time the widget joins a displayed tree. */
	virtual void NativeConstruct() {}
	/** Each time the widget is removed from a displayed tree, or the tree goes away. */
	virtual void NativeDestruct() {}
	/** Each frame while the widget is displayed; InDeltaTime: seconds. */
	virtual void NativeTick([[maybe_unused]] const FGeometry& MyGeometry, [[maybe_unused]] float InDeltaTime) {}
	virtual void NativeOnMouseEnter(const FGeometry& InGeometry, const struct FPointerEvent& InMouseEvent);
	virtual void NativeOnMouseLeave(const struct FPointerEvent& InMouseEvent);

	/** Enables ticking; here every displayed widget ticks. */
	void UpdateCanTick() {}

	FVector2D ComputeDesiredSize() override;

private:
	static UUserWidget* Create(UObject& InOuter, UClass* InClass, FName InName);

	bool bInitialized = false;
	std::weak_ptr<SWidget> TakenWidget;
};

/** Makes a user widget of InClass; the owner is a widget or a world. */
template <class WidgetT, class OwnerType>
WidgetT* CreateWidget(OwnerType* InOwner, TSubclassOf<UUserWidget> InClass = WidgetT::StaticClass(),
					  FName InName = NAME_None)
{
	return InOwner != nullptr ? Cast<WidgetT>(UUserWidget::CreateWidgetInstance(*InOwner, InClass, InName)) : nullptr;
}
