#pragma once

#include "CoreMinimal.h"
#include "UI_DanmakuNode.h"

#include "FlitmarkComment.generated.h"

/**
 * A comment that needs no widget blueprint: white text with a dark outline, legible on any picture. Size and color come
 * from the comment. A blueprint based on this class provides its own tree, with a text block "NodeContentText".
 */
UCLASS(Blueprintable, meta = (DisplayName = "Flitmark Comment"))
class FLITMARKWIDGETS_API UFlitmarkComment : public UUI_DanmakuNode
{
	GENERATED_BODY()

protected:
	virtual void InitializeNativeClassData() override;
};
