#pragma once

#include "Components/ContentWidget.h"
#include "UObject/ScriptDelegates.h"

DECLARE_DYNAMIC_MULTICAST_DELEGATE_OneParam(FOnCheckBoxComponentStateChanged, bool, bIsChecked);

/** Something to tick. */
class ENGINELAYER_API UCheckBox : public UContentWidget
{
	DECLARE_LAYER_CLASS(UCheckBox, UContentWidget)

public:
	explicit UCheckBox(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	/** Raised when a viewer toggles the box. */
	FOnCheckBoxComponentStateChanged OnCheckStateChanged;

	bool IsChecked() const { return bIsChecked; }
	/** Raises nothing. */
	void SetIsChecked(bool bInIsChecked) { bIsChecked = bInIsChecked; }

	/** The viewer toggles the box to that state. Does nothing if it is already there or not usable. */
	void Toggle(bool bInIsChecked);

private:
	bool bIsChecked = false;
};
