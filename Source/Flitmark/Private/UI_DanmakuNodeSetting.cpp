#include "UI_DanmakuNodeSetting.h"

#include "Components/CheckBox.h"
#include "Components/EditableText.h"
#include "Components/Image.h"
#include "Engine/World.h"
#include "Input/Events.h"
#include "TimerManager.h"

namespace
{

/** Seconds from when the pointer leaves until the panel hides. */
constexpr float HideDelay = 0.75f;

/** Digits of a typed color: RRGGBB. */
constexpr int32 MaxColorDigits = 6;

constexpr bool IsHexDigit(TCHAR Character)
{
	return (Character >= TEXT('0') && Character <= TEXT('9')) || (Character >= TEXT('A') && Character <= TEXT('F')) ||
		   (Character >= TEXT('a') && Character <= TEXT('f'));
}

/** A text's first hexadecimal digits, at most six. */
FString FilterColorDigits(const FString& Text)
{
	FString Digits;
	for (int32 Index = 0; Index < Text.Len() && Digits.Len() < MaxColorDigits; ++Index)
	{
		if (IsHexDigit(Text[Index]))
		{
			Digits.AppendChar(Text[Index]);
		}
	}
	return Digits;
}

/** The digits of a preset: the box's name without "C_". */
FString GetPresetDigits(const UCheckBox* Box)
{
	return Box->GetName().RightChop(2);
}

} // namespace

EDanmakuMode UUI_DanmakuNodeSetting::GetModel() const
{
	// Null if the engine skipped NativeOnInitialized, as it does without a player context.
	const FString Name = ModelSelect != nullptr ? ModelSelect->GetName() : FString();
	if (Name.Equals(TEXT("Top"), ESearchCase::IgnoreCase))
	{
		return EDanmakuMode::TOP;
	}
	if (Name.Equals(TEXT("Bottom"), ESearchCase::IgnoreCase))
	{
		return EDanmakuMode::BOTTOM;
	}
	return EDanmakuMode::SCROLL;
}

int32 UUI_DanmakuNodeSetting::GetFontSize() const
{
	return FontSelect != nullptr && FontSelect == Small ? SmallFontSize : NormalFontSize;
}

FString UUI_DanmakuNodeSetting::GetFontColor() const
{
	const FLinearColor Color =
		DisplayColorImage != nullptr ? DisplayColorImage->GetColorAndOpacity() : FLinearColor::White;
	return FString(TEXT("#")) + Color.ToFColorSRGB().ToHex();
}

void UUI_DanmakuNodeSetting::SetVisible()
{
	CancelHide();
	SetVisibility(ESlateVisibility::Visible);
}

void UUI_DanmakuNodeSetting::SetHidden()
{
	if (UWorld* World = GetWorld())
	{
		// The timer holds the panel weakly: a hide never reaches one that is gone.
		const FTimerDelegate Hide = FTimerDelegate::CreateWeakLambda(this,
																	 [this]
																	 {
																		 SetVisibility(ESlateVisibility::Hidden);
																		 CancelHide();
																	 });
		World->GetTimerManager().SetTimer(HideTimerHandle, Hide, HideDelay, false);
	}
}

void UUI_DanmakuNodeSetting::NativeOnInitialized()
{
	Super::NativeOnInitialized();
	SetVisibility(ESlateVisibility::Hidden);
	if (InputColorText == nullptr)
	{
		// A class without a blueprint has no widgets.
		return;
	}

	InputColorText->OnTextChanged.AddDynamic(this, &UUI_DanmakuNodeSetting::OnInputColorTextChanged);
	Scroll->SetIsChecked(true);
	ModelSelect = Scroll;
	Normal->SetIsChecked(true);
	FontSelect = Normal;
	C_FFFFFF->SetIsChecked(true);
	ColorSelect = C_FFFFFF;
	InputColorText->SetText(FText::FromString(TEXT("#FFFFFF")));
	DisplayColorImage->SetColorAndOpacity(FLinearColor(FColor::FromHex(TEXT("#FFFFFF"))));

	ModelCheckBoxes = {Scroll, Top, Bottom};
	Scroll->OnCheckStateChanged.AddDynamic(this, &UUI_DanmakuNodeSetting::OnScrollCheckStateChanged);
	Top->OnCheckStateChanged.AddDynamic(this, &UUI_DanmakuNodeSetting::OnTopCheckStateChanged);
	Bottom->OnCheckStateChanged.AddDynamic(this, &UUI_DanmakuNodeSetting::OnBottomCheckStateChanged);

	FontCheckBoxes = {Small, Normal};
	Small->OnCheckStateChanged.AddDynamic(this, &UUI_DanmakuNodeSetting::OnSmallCheckStateChanged);
	Normal->OnCheckStateChanged.AddDynamic(this, &UUI_DanmakuNodeSetting::OnNormalCheckStateChanged);

	ColorCheckBoxes = {C_FE0302, C_00CD00, C_4266BE, C_FFFFFF};
	C_FE0302->OnCheckStateChanged.AddDynamic(this, &UUI_DanmakuNodeSetting::OnC_FE0302CheckStateChanged);
	C_00CD00->OnCheckStateChanged.AddDynamic(this, &UUI_DanmakuNodeSetting::OnC_00CD00CheckStateChanged);
	C_4266BE->OnCheckStateChanged.AddDynamic(this, &UUI_DanmakuNodeSetting::OnC_4266BECheckStateChanged);
	C_FFFFFF->OnCheckStateChanged.AddDynamic(this, &UUI_DanmakuNodeSetting::OnC_FFFFFFCheckStateChanged);
}

void UUI_DanmakuNodeSetting::NativeConstruct()
{
	Super::NativeConstruct();
}

void UUI_DanmakuNodeSetting::NativeOnMouseEnter(const FGeometry& InGeometry, const FPointerEvent& InMouseEvent)
{
	Super::NativeOnMouseEnter(InGeometry, InMouseEvent);
	CancelHide();
}

void UUI_DanmakuNodeSetting::NativeOnMouseLeave(const FPointerEvent& InMouseEvent)
{
	Super::NativeOnMouseLeave(InMouseEvent);
	SetHidden();
}

void UUI_DanmakuNodeSetting::CancelHide()
{
	if (UWorld* World = GetWorld())
	{
		World->GetTimerManager().ClearTimer(HideTimerHandle);
	}
	HideTimerHandle.Invalidate();
}

void UUI_DanmakuNodeSetting::SelectInGroup(UCheckBox* Box, UCheckBox*& Selected, bool bIsChecked)
{
	if (!bIsChecked)
	{
		// Only the selected box can be unchecked, and one box of the group is always selected.
		Box->SetIsChecked(true);
		return;
	}
	Selected->SetIsChecked(false);
	Selected = Box;
}

void UUI_DanmakuNodeSetting::SelectColor(UCheckBox* Box, const FString& Color)
{
	if (ColorSelect != Box)
	{
		ColorSelect->SetIsChecked(false);
		ColorSelect = Box;
	}
	else
	{
		Box->SetIsChecked(true);
	}
	InputColorText->SetText(FText::FromString(Color));
	DisplayColorImage->SetColorAndOpacity(FLinearColor(FColor::FromHex(Color)));
}

void UUI_DanmakuNodeSetting::ChangeSelectedColor(const FString& Color)
{
	for (UCheckBox* Box : ColorCheckBoxes)
	{
		if (GetPresetDigits(Box).Equals(Color.ToUpper(), ESearchCase::IgnoreCase))
		{
			Box->SetIsChecked(true);
			Box->OnCheckStateChanged.Broadcast(true);
			return;
		}
	}
	ColorSelect->SetIsChecked(false);
}

void UUI_DanmakuNodeSetting::OnScrollCheckStateChanged(bool bIsChecked)
{
	SelectInGroup(Scroll, ModelSelect, bIsChecked);
}

void UUI_DanmakuNodeSetting::OnTopCheckStateChanged(bool bIsChecked)
{
	SelectInGroup(Top, ModelSelect, bIsChecked);
}

void UUI_DanmakuNodeSetting::OnBottomCheckStateChanged(bool bIsChecked)
{
	SelectInGroup(Bottom, ModelSelect, bIsChecked);
}

void UUI_DanmakuNodeSetting::OnSmallCheckStateChanged(bool bIsChecked)
{
	SelectInGroup(Small, FontSelect, bIsChecked);
}

void UUI_DanmakuNodeSetting::OnNormalCheckStateChanged(bool bIsChecked)
{
	SelectInGroup(Normal, FontSelect, bIsChecked);
}

void UUI_DanmakuNodeSetting::OnC_FE0302CheckStateChanged(bool)
{
	SelectColor(C_FE0302, TEXT("#FE0302"));
}

void UUI_DanmakuNodeSetting::OnC_00CD00CheckStateChanged(bool)
{
	SelectColor(C_00CD00, TEXT("#00CD00"));
}

void UUI_DanmakuNodeSetting::OnC_4266BECheckStateChanged(bool)
{
	SelectColor(C_4266BE, TEXT("#4266BE"));
}

void UUI_DanmakuNodeSetting::OnC_FFFFFFCheckStateChanged(bool)
{
	SelectColor(C_FFFFFF, TEXT("#FFFFFF"));
}

void UUI_DanmakuNodeSetting::OnInputColorTextChanged(const FText& InText)
{
	// The rewritten text rewrites to itself, so this settles even if setting it raises the event again.
	if (InText.IsEmptyOrWhitespace())
	{
		InputColorText->SetText(FText::FromString(TEXT("#")));
		return;
	}
	const FString Digits = FilterColorDigits(InText.ToString());
	InputColorText->SetText(FText::FromString(FString(TEXT("#")) + Digits));
	const FColor Color = FColor::FromHex(Digits.ToUpper());
	if (Color != FColor(0, 0, 0, 0))
	{
		DisplayColorImage->SetColorAndOpacity(FLinearColor(Color));
	}
	ChangeSelectedColor(Digits);
}
