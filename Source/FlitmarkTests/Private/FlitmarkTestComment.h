#pragma once

#include "CoreMinimal.h"
#include "UI_DanmakuNode.h"

#include "FlitmarkTestComment.generated.h"

/** A comment of a size that the test writes down, so that no font decides where it stands. */
UCLASS()
class FLITMARKTESTS_API UFlitmarkTestComment : public UUI_DanmakuNode
{
	GENERATED_BODY()

public:
	/** Canvas units, for the comments made from now on. */
	static FVector2D NextSize;

protected:
	virtual void InitializeNativeClassData() override;
};
