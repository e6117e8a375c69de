#pragma once

#include "Blueprint/UserWidget.h"
#include "CoreMinimal.h"

#include "Sample.generated.h"

class UTextBlock;

/** How it moves. */
UENUM()
enum class ESampleMode : int32
{
	Still,
	Moving = 4
};

/** It was moved. */
DECLARE_DYNAMIC_MULTICAST_DELEGATE_OneParam(FOnSampleMoved, const ESampleMode&, Mode);

/**
 * One of each kind of record:
 * as small as it can be.
 */
UCLASS()
class SAMPLE_API USample : public UUserWidget
{
	GENERATED_BODY()

private:
	// Shown in the middle.
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UTextBlock> Title;

	UPROPERTY(EditAnywhere, Category = "Sample")
	int32 Count = 3;

	UPROPERTY()
	TArray<USample*> Others;

	UFUNCTION()
	void OnMoved(const ESampleMode& Mode, const FString& By, USample* Other);
};
