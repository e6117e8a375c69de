#pragma once

#include "CoreMinimal.h"
#include "UI_DanmakuNode.h"

#include "FlitmarkTestComment.generated.h"

/** A comment whose size the test specifies, so that its place does not depend on a font. */
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
