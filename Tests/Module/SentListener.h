#pragma once

#include "CoreMinimal.h"
#include "FlitmarkCommentMode.h"
#include "UObject/Object.h"

#include "SentListener.generated.h"

/** Keeps what a player widget reports as sent. */
UCLASS()
class USentListener : public UObject
{
	GENERATED_BODY()

public:
	UFUNCTION()
	void OnSent(const FString& VideoURL, FTimespan Time, const FString& Text, EFlitmarkCommentMode Mode, int32 FontSize,
				FLinearColor Color);

	int32 Count = 0;
	FString LastUrl;
	FTimespan LastTime;
	FString LastText;
	EFlitmarkCommentMode LastMode = EFlitmarkCommentMode::Reverse;
	int32 LastFontSize = 0;
	FLinearColor LastColor = FLinearColor::Transparent;
};
