#pragma once

#include "Components/ContentWidget.h"
#include "UObject/ScriptDelegates.h"

DECLARE_DYNAMIC_MULTICAST_DELEGATE(FOnButtonClickedEvent);
DECLARE_DYNAMIC_MULTICAST_DELEGATE(FOnButtonHoverEvent);

/** Something to click. */
class ENGINELAYER_API UButton : public UContentWidget
{
	DECLARE_LAYER_CLASS(UButton, UContentWidget)

public:
	explicit UButton(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	void SetBackgroundColor(FLinearColor InBackgroundColor) { BackgroundColor = InBackgroundColor; }
	FLinearColor GetBackgroundColor() const { return BackgroundColor; }

	FOnButtonClickedEvent OnClicked;
	FOnButtonHoverEvent OnHovered;
	FOnButtonHoverEvent OnUnhovered;

	/** What a viewer does with it. Each call raises its event; none does if the button is not usable. */
	void Click();
	void Hover();
	void Unhover();

private:
	FLinearColor BackgroundColor{1.f, 1.f, 1.f, 1.f};
};
