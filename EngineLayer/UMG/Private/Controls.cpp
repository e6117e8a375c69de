#include "Components/Button.h"
#include "Components/CheckBox.h"
#include "Components/EditableText.h"
#include "Components/Image.h"
#include "Components/WrapBox.h"
#include "UObject/GeneratedCppIncludes.h"

IMPLEMENT_LAYER_CLASS(UButton, "Button")
IMPLEMENT_LAYER_CLASS(UCheckBox, "CheckBox")
IMPLEMENT_LAYER_CLASS(UEditableText, "EditableText")
IMPLEMENT_LAYER_CLASS(UImage, "Image")
IMPLEMENT_LAYER_CLASS(UWrapBox, "WrapBox")

void UButton::Click()
{
	if (IsUsable())
	{
		OnClicked.Broadcast();
	}
}

void UButton::Hover()
{
	if (IsUsable())
	{
		OnHovered.Broadcast();
	}
}

void UButton::Unhover()
{
	if (IsUsable())
	{
		OnUnhovered.Broadcast();
	}
}

void UCheckBox::Toggle(bool bInIsChecked)
{
	if (bIsChecked != bInIsChecked && IsUsable())
	{
		bIsChecked = bInIsChecked;
		OnCheckStateChanged.Broadcast(bInIsChecked);
	}
}

void UEditableText::TypeText(const FText& InText)
{
	if (IsUsable() && !Text.ToString().Equals(InText.ToString()))
	{
		Text = InText;
		OnTextChanged.Broadcast(InText);
	}
}

void UEditableText::Commit(ETextCommit::Type InCommitMethod)
{
	if (!IsUsable())
	{
		return;
	}
	if (InCommitMethod == ETextCommit::OnUserMovedFocus)
	{
		ClearFocus();
	}
	// A copy, because a subscriber may set another text.
	const FText Committed = Text;
	OnTextCommitted.Broadcast(Committed, InCommitMethod);
	if (InCommitMethod == ETextCommit::OnEnter && ClearKeyboardFocusOnCommit && HasKeyboardFocus())
	{
		ClearFocus();
		const FText Left = Text;
		OnTextCommitted.Broadcast(Left, ETextCommit::OnCleared);
	}
}
