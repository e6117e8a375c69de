#pragma once

#include "CoreMinimal.h"
#include "UI_DanmakuBar.h"

#include "FlitmarkBar.generated.h"

/**
 * The bar in which the viewer writes, with built-in controls, so that it needs no widget blueprint. A blueprint based
 * on this class provides its own tree, with the widgets that the base class binds.
 */
UCLASS(Blueprintable, meta = (DisplayName = "Flitmark Bar"))
class FLITMARKWIDGETS_API UFlitmarkBar : public UUI_DanmakuBar
{
	GENERATED_BODY()

protected:
	virtual void InitializeNativeClassData() override;
};
