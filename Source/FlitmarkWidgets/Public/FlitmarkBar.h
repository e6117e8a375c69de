#pragma once

#include "CoreMinimal.h"
#include "UI_DanmakuBar.h"

#include "FlitmarkBar.generated.h"

/**
 * The bar in which the viewer writes, with controls of its own, so that it needs no widget blueprint. A blueprint based on
 * this class brings a tree of its own, with the widgets that the base class binds.
 */
UCLASS(Blueprintable, meta = (DisplayName = "Flitmark Bar"))
class FLITMARKWIDGETS_API UFlitmarkBar : public UUI_DanmakuBar
{
	GENERATED_BODY()

protected:
	virtual void InitializeNativeClassData() override;
};
