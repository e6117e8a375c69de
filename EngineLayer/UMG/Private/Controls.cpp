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

void UEditableText::SetText(FText InText)
{
	const bool bChanged = !Text.ToString().Equals(InText.ToString());
	Text = InText;
	if (bChanged && bWasDisplayed)
	{
		// Not the member: a subscriber may set another text.
		OnTextChanged.Broadcast(InText);
	}
}

void UEditableText::TypeText(const FText& InText)
{
	if (IsUsable())
	{
		SetText(InText);
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
	const FText Committed = Text;
	OnTextCommitted.Broadcast(Committed, InCommitMethod);
}

void UEditableText::ConstructTree()
{
	Super::ConstructTree();
	bWasDisplayed = true;
}
