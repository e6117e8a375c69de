#pragma once

#include "CoreMinimal.h"
#include "FlitmarkPanel.h"

#include "FlitmarkTestPanel.generated.h"

/** The ready-made panel for a world without a player, where the engine skips NativeOnInitialized. */
UCLASS()
class FLITMARKTESTS_API UFlitmarkTestPanel : public UFlitmarkPanel
{
	GENERATED_BODY()

public:
	/** Calls NativeOnInitialized unless the engine did. */
	void EnsureInitialized();

protected:
	virtual void NativeOnInitialized() override;

private:
	bool bIsInitialized = false;
};
