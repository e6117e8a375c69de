#pragma once

#include "Blueprint/UserWidget.h"
#include "Components/Button.h"
#include "Components/CheckBox.h"
#include "CoreMinimal.h"
#include "DanmakuDataStruct.h"
#include "Types/SlateEnums.h"

#include "UI_DanmakuBar.generated.h"

class UEditableText;
class UMediaPlayer;
class UTextBlock;
class UUI_DanmakuNodeSetting;

/** A comment is sent; SpawnTime: media time in ticks of 100 ns, FontSize: points, FontColor: "#RRGGBBAA". */
DECLARE_DYNAMIC_MULTICAST_DELEGATE_SixParams(FOnSendDanmakuSignature, const FString&, VideoURL, const int64&, SpawnTime,
											 const FString&, Content, const EDanmakuMode&, Mode, const int32&, FontSize,
											 const FString&, FontColor);

/**
 * The row of controls in which the viewer writes a comment, sends it, opens the style panel, and turns the overlay on
 * and off.
 */
UCLASS()
class FLITMARK_API UUI_DanmakuBar : public UUserWidget
{
	GENERATED_BODY()

private:
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UCheckBox> OpenDanmakuButton;

	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UButton> DanmakuNodeSettingButton;

	//UPROPERTY(meta = (BindWidget))
	//TObjectPtr<UUI_InputTextAndNum> InputDanmakuText;
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UEditableText> InputDanmakuText;

	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UTextBlock> TextNum;

	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UButton> SendDanmakuButton;

	/** The maximum length of a comment, in 16-bit code units. */
	UPROPERTY(EditAnywhere, Category = "InputTextAndNumSetting")
	int32 MaxNumOFInputTex = 100;

	UPROPERTY()
	TObjectPtr<UMediaPlayer> MediaPlayer;

	UPROPERTY()
	TObjectPtr<UUI_DanmakuNodeSetting> DanmakuNodeSetting;

public:
	/** Raised when the viewer sends a comment. */
	FOnSendDanmakuSignature OnSendDanmaku;

	/** Connects the player and the style panel, and hides the panel. A comment sent before this has nowhere to go. */
	void Init(UMediaPlayer* InMediaPlayer, UUI_DanmakuNodeSetting* InDanmakuNodeSetting);

	/** Enables the controls, with an empty field. */
	void Open();

	/** Disables all controls but the check box. */
	void Close();

	/** The check box's event; it passes the new state, true if checked. */
	FOnCheckBoxComponentStateChanged& GetOpenDanmakuButtonClickedEvent() const;
	FOnButtonClickedEvent& GetSendDanmakuButtonClickedEvent() const;
	UButton* GetButton() const;

protected:
	virtual void NativePreConstruct() override;
	virtual void NativeConstruct() override;
	virtual void NativeDestruct() override;
	virtual void NativeTick(const FGeometry& MyGeometry, float InDeltaTime) override;

private:
	void EmptyInputText();
	/** Shows how many code units are used, and how many are allowed. */
	void SetCounter(int32 Count);

	UFUNCTION()
	void OnInputTextChanged(const FText& Text);

	UFUNCTION()
	void OnSendDanmakuButtonClicked();

	UFUNCTION()
	void OnInputDanmakuTextCommitted(const FText& Text, ETextCommit::Type CommitMethod);

	UFUNCTION()
	void OnSettingDanmakuButtonHovered();

	UFUNCTION()
	void OnSettingDanmakuButtonUnHovered();
};
