#pragma once

#include "Blueprint/UserWidget.h"

#include <type_traits>

/** The widgets inside a user widget. */
class ENGINELAYER_API UWidgetTree : public UObject
{
	DECLARE_LAYER_CLASS(UWidgetTree, UObject)

public:
	explicit UWidgetTree(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	TObjectPtr<UWidget> RootWidget;

	/** Makes a widget that belongs to the tree but has no place in it yet. */
	template <class WidgetT>
	WidgetT* ConstructWidget(TSubclassOf<UWidget> WidgetClass = WidgetT::StaticClass(), FName WidgetName = NAME_None)
	{
		if (WidgetClass->IsChildOf(UUserWidget::StaticClass()))
		{
			return Cast<WidgetT>(UUserWidget::CreateWidgetInstance(*this, WidgetClass.Get(), WidgetName));
		}
		return NewObject<WidgetT>(this, WidgetClass, WidgetName, RF_Transactional);
	}

	/** The widget in the tree with that name; null if there is none. */
	UWidget* FindWidget(FName InName) const;

	void VisitReferences(FReferenceCollector& Collector) override;
};
