#include "UI_DanmakuBar.h"

#include "Components/EditableText.h"
#include "Components/TextBlock.h"
#include "Kismet/KismetStringLibrary.h"
#include "MediaPlayer.h"
#include "UI_DanmakuNodeSetting.h"

#define LOCTEXT_NAMESPACE "UUI_DanmakuBar"

void UUI_DanmakuBar::Init(UMediaPlayer* InMediaPlayer, UUI_DanmakuNodeSetting* InDanmakuNodeSetting)
{
	MediaPlayer = InMediaPlayer;
	DanmakuNodeSetting = InDanmakuNodeSetting;
	if (DanmakuNodeSetting)
	{
		DanmakuNodeSetting->SetVisibility(ESlateVisibility::Hidden);
	}
}

void UUI_DanmakuBar::Open()
{
	EmptyInputText();
	InputDanmakuText->SetIsEnabled(true);
	SendDanmakuButton->SetIsEnabled(true);
	TextNum->SetIsEnabled(true);
	TextNum->SetVisibility(ESlateVisibility::Visible);
	DanmakuNodeSettingButton->SetIsEnabled(true);
	DanmakuNodeSettingButton->SetVisibility(ESlateVisibility::Visible);
}

void UUI_DanmakuBar::Close()
{
	InputDanmakuText->SetIsEnabled(false);
	InputDanmakuText->SetText(LOCTEXT("ClosedBullet", "ClosedBullet"));
	SendDanmakuButton->SetIsEnabled(false);
	TextNum->SetIsEnabled(false);
	TextNum->SetVisibility(ESlateVisibility::Collapsed);
	DanmakuNodeSettingButton->SetIsEnabled(false);
	DanmakuNodeSettingButton->SetVisibility(ESlateVisibility::Collapsed);
}

FOnCheckBoxComponentStateChanged& UUI_DanmakuBar::GetOpenDanmakuButtonClickedEvent() const
{
	return OpenDanmakuButton->OnCheckStateChanged;
}

FOnButtonClickedEvent& UUI_DanmakuBar::GetSendDanmakuButtonClickedEvent() const
{
	return SendDanmakuButton->OnClicked;
}

UButton* UUI_DanmakuBar::GetButton() const
{
	return SendDanmakuButton;
}

void UUI_DanmakuBar::NativePreConstruct()
{
	Super::NativePreConstruct();
	// The designer also calls this on classes whose widgets are not bound.
	if (TextNum)
	{
		SetCounter(0);
	}
}

void UUI_DanmakuBar::NativeConstruct()
{
	Super::NativeConstruct();
	if (!InputDanmakuText)
	{
		// A class without a blueprint has no widgets.
		return;
	}
	InputDanmakuText->SetText(FText::GetEmpty());
	// Unique, because a widget that is removed and added back gets constructed again.
	InputDanmakuText->OnTextChanged.AddUniqueDynamic(this, &UUI_DanmakuBar::OnInputTextChanged);
	SendDanmakuButton->OnClicked.AddUniqueDynamic(this, &UUI_DanmakuBar::OnSendDanmakuButtonClicked);
	InputDanmakuText->OnTextCommitted.AddUniqueDynamic(this, &UUI_DanmakuBar::OnInputDanmakuTextCommitted);
	DanmakuNodeSettingButton->OnHovered.AddUniqueDynamic(this, &UUI_DanmakuBar::OnSettingDanmakuButtonHovered);
	DanmakuNodeSettingButton->OnUnhovered.AddUniqueDynamic(this, &UUI_DanmakuBar::OnSettingDanmakuButtonUnHovered);
}

void UUI_DanmakuBar::NativeDestruct()
{
	Super::NativeDestruct();
}

void UUI_DanmakuBar::NativeTick(const FGeometry& MyGeometry, float InDeltaTime)
{
	Super::NativeTick(MyGeometry, InDeltaTime);
}

void UUI_DanmakuBar::EmptyInputText()
{
	InputDanmakuText->SetText(FText::GetEmpty());
	SetCounter(0);
}

void UUI_DanmakuBar::SetCounter(int32 Count)
{
	TextNum->SetText(
		FText::Format(LOCTEXT("TextNum", "{0}/{1}"), FText::AsNumber(Count), FText::AsNumber(MaxNumOFInputTex)));
}

void UUI_DanmakuBar::OnInputTextChanged(const FText& Text)
{
	FString Written = Text.ToString();
	if (Written.Len() >= MaxNumOFInputTex)
	{
		Written = UKismetStringLibrary::GetSubstring(Written, 0, MaxNumOFInputTex);
		InputDanmakuText->SetText(FText::FromString(Written));
	}
	SetCounter(Written.Len());
}

void UUI_DanmakuBar::OnSendDanmakuButtonClicked()
{
	const FText Written = InputDanmakuText->GetText();
	if (Written.IsEmptyOrWhitespace())
	{
		EmptyInputText();
		InputDanmakuText->SetFocus();
		return;
	}
	const FString Content = Written.ToString();
	if (Content.Len() > MaxNumOFInputTex)
	{
		InputDanmakuText->SetFocus();
		return;
	}
	EmptyInputText();
	if (!MediaPlayer || !DanmakuNodeSetting)
	{
		return;
	}
	const FString Url = MediaPlayer->GetUrl();
	if (Url.IsEmpty())
	{
		return;
	}
	const int64 Time = MediaPlayer->GetTime().GetTicks();
	const EDanmakuMode Mode = DanmakuNodeSetting->GetModel();
	const int32 FontSize = DanmakuNodeSetting->GetFontSize();
	const FString FontColor = DanmakuNodeSetting->GetFontColor();
	OnSendDanmaku.Broadcast(Url, Time, Content, Mode, FontSize, FontColor);
}

void UUI_DanmakuBar::OnInputDanmakuTextCommitted(const FText&, ETextCommit::Type CommitMethod)
{
	if (CommitMethod == ETextCommit::OnEnter)
	{
		OnSendDanmakuButtonClicked();
		SetCounter(0);
	}
}

void UUI_DanmakuBar::OnSettingDanmakuButtonHovered()
{
	if (DanmakuNodeSetting)
	{
		DanmakuNodeSetting->SetVisible();
	}
}

void UUI_DanmakuBar::OnSettingDanmakuButtonUnHovered()
{
	if (DanmakuNodeSetting)
	{
		DanmakuNodeSetting->SetHidden();
	}
}

#undef LOCTEXT_NAMESPACE
