#pragma once

#include "Components/Widget.h"
#include "Fonts/SlateFontInfo.h"
#include "Types/SlateEnums.h"
#include "UObject/ScriptDelegates.h"

/** A single-line field in which a viewer types. */
class ENGINELAYER_API UEditableText : public UWidget
{
	DECLARE_LAYER_CLASS(UEditableText, UWidget)

public:
	DECLARE_DYNAMIC_MULTICAST_DELEGATE_OneParam(FOnEditableTextChangedEvent, const FText&, Text);
	DECLARE_DYNAMIC_MULTICAST_DELEGATE_TwoParams(FOnEditableTextCommittedEvent, const FText&, Text, ETextCommit::Type,
												 CommitMethod);

	explicit UEditableText(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	/** Raised with the whole new text when the viewer changes it. */
	FOnEditableTextChangedEvent OnTextChanged;
	FOnEditableTextCommittedEvent OnTextCommitted;

	/** Whether the field gives up keyboard focus after the viewer presses Enter. */
	bool ClearKeyboardFocusOnCommit = true;
	void SetClearKeyboardFocusOnCommit(bool bInClearKeyboardFocusOnCommit)
	{
		ClearKeyboardFocusOnCommit = bInClearKeyboardFocusOnCommit;
	}

	/** Raises no event; only the viewer's changes do. */
	virtual void SetText(FText InText) { Text = InText; }
	FText GetText() const { return Text; }

	/** What an empty field shows. */
	virtual void SetHintText(FText InHintText) { HintText = InHintText; }
	FText GetHintText() const { return HintText; }
	virtual void SetFont(FSlateFontInfo InFontInfo) { Font = InFontInfo; }
	const FSlateFontInfo& GetFont() const { return Font; }
	/** Slate units. */
	virtual void SetMinimumDesiredWidth(float InMinDesiredWidth) { MinimumDesiredWidth = InMinDesiredWidth; }
	float GetMinimumDesiredWidth() const { return MinimumDesiredWidth; }

	/**
	 * The viewer makes the field read InText, as by select-all and paste. Does nothing if it already does, or is not
	 * usable.
	 */
	void TypeText(const FText& InText);
	/**
	 * The viewer commits the current text. The field gives up focus before the event if the viewer moved the focus, and
	 * after it on Enter, which then raises a second event, OnCleared. Does nothing if not usable.
	 */
	void Commit(ETextCommit::Type InCommitMethod);

private:
	FText Text;
	FText HintText;
	FSlateFontInfo Font;
	float MinimumDesiredWidth = 0.f;
};
