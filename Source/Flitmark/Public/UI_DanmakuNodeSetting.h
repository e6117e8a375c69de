#pragma once

#include "Blueprint/UserWidget.h"
#include "CoreMinimal.h"
#include "DanmakuDataStruct.h"
#include "Engine/EngineTypes.h"

#include "UI_DanmakuNodeSetting.generated.h"

class UCheckBox;
class UEditableText;
class UImage;
class UWrapBox;

/**
 * The pop-up panel in which the viewer chooses mode, size and color of the comments they send. It hides 0.75 seconds
 * after the pointer has left it and the button that shows it.
 */
UCLASS()
class FLITMARK_API UUI_DanmakuNodeSetting : public UUserWidget
{
	GENERATED_BODY()

public:
	/** SCROLL, TOP or BOTTOM. */
	EDanmakuMode GetModel() const;

	/** Points. */
	int32 GetFontSize() const;

	/** "#RRGGBBAA", uppercase. */
	FString GetFontColor() const;

	/** Shows the panel at once, canceling any pending hide. */
	void SetVisible();

	/** Hides the panel after its delay, counted from the last call. */
	void SetHidden();

protected:
	virtual void NativeOnInitialized() override;
	virtual void NativeConstruct() override;
	virtual void NativeOnMouseEnter(const FGeometry& InGeometry, const FPointerEvent& InMouseEvent) override;
	virtual void NativeOnMouseLeave(const FPointerEvent& InMouseEvent) override;

private:
	void CancelHide();
	/** Keeps exactly one box of a group checked; for the mode and size boxes. */
	static void SelectInGroup(UCheckBox* Box, UCheckBox*& Selected, bool bIsChecked);
	/** The viewer picked a preset. Color: the box's color text. */
	void SelectColor(UCheckBox* Box, const FString& Color);
	/** Selects the preset with these digits; if there is none, no preset stays checked. */
	void ChangeSelectedColor(const FString& Color);

	UFUNCTION()
	void OnScrollCheckStateChanged(bool bIsChecked);

	UFUNCTION()
	void OnTopCheckStateChanged(bool bIsChecked);

	UFUNCTION()
	void OnBottomCheckStateChanged(bool bIsChecked);

	UFUNCTION()
	void OnSmallCheckStateChanged(bool bIsChecked);

	UFUNCTION()
	void OnNormalCheckStateChanged(bool bIsChecked);

	UFUNCTION()
	void OnC_FE0302CheckStateChanged(bool bIsChecked);

	UFUNCTION()
	void OnC_00CD00CheckStateChanged(bool bIsChecked);

	UFUNCTION()
	void OnC_4266BECheckStateChanged(bool bIsChecked);

	UFUNCTION()
	void OnC_FFFFFFCheckStateChanged(bool bIsChecked);

	UFUNCTION()
	void OnInputColorTextChanged(const FText& InText);

	UPROPERTY(meta = (BindWidget))
	UWrapBox* ModelBox = nullptr;

	UPROPERTY(meta = (BindWidget))
	UCheckBox* Scroll = nullptr;

	UPROPERTY(meta = (BindWidget))
	UCheckBox* Top = nullptr;

	UPROPERTY(meta = (BindWidget))
	UCheckBox* Bottom = nullptr;

	UPROPERTY(meta = (BindWidget))
	UWrapBox* FontBox = nullptr;

	UPROPERTY(meta = (BindWidget))
	UCheckBox* Small = nullptr;

	UPROPERTY(meta = (BindWidget))
	UCheckBox* Normal = nullptr;

	/** Points. */
	UPROPERTY(EditAnywhere, Category = "Setting")
	int32 SmallFontSize = 18;

	/** Points. */
	UPROPERTY(EditAnywhere, Category = "Setting")
	int32 NormalFontSize = 24;

	UPROPERTY(meta = (BindWidget))
	UWrapBox* ColorBox = nullptr;

	UPROPERTY(meta = (BindWidget))
	UCheckBox* C_FE0302 = nullptr;

	UPROPERTY(meta = (BindWidget))
	UCheckBox* C_00CD00 = nullptr;

	UPROPERTY(meta = (BindWidget))
	UCheckBox* C_4266BE = nullptr;

	UPROPERTY(meta = (BindWidget))
	UCheckBox* C_FFFFFF = nullptr;

	UPROPERTY(meta = (BindWidget))
	UEditableText* InputColorText = nullptr;

	UPROPERTY(meta = (BindWidget))
	UImage* DisplayColorImage = nullptr;

	/** The pending hide. */
	FTimerHandle HideTimerHandle;

	UPROPERTY()
	TArray<UCheckBox*> ModelCheckBoxes;

	UPROPERTY()
	UCheckBox* ModelSelect = nullptr;

	UPROPERTY()
	TArray<UCheckBox*> FontCheckBoxes;

	UPROPERTY()
	UCheckBox* FontSelect = nullptr;

	UPROPERTY()
	TArray<UCheckBox*> ColorCheckBoxes;

	/** The last preset selected; unchecked while a typed color matches no preset. */
	UPROPERTY()
	UCheckBox* ColorSelect = nullptr;
};
