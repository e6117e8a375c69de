#pragma once

#include "Components/Widget.h"
#include "UObject/ScriptDelegates.h"

DECLARE_DYNAMIC_MULTICAST_DELEGATE(FOnButtonClickedEvent);
DECLARE_DYNAMIC_MULTICAST_DELEGATE(FOnButtonHoverEvent);

/** Something to click. */
class ENGINELAYER_API UButton : public UWidget
{
	DECLARE_LAYER_CLASS(UButton, UWidget)

public:
	explicit UButton(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	FOnButtonClickedEvent OnClicked;
	FOnButtonHoverEvent OnHovered;
	FOnButtonHoverEvent OnUnhovered;

	/** What a viewer does with it; each raises its event every time, and nothing where the button is not usable. */
	void Click();
	void Hover();
	void Unhover();
};
