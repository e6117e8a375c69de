#pragma once

#include "CoreMinimal.h"
#include "UI_DanmakuNodeSetting.h"

#include "FlitmarkPanel.generated.h"

/**
 * The panel in which the viewer picks mode, size and color, with built-in controls, so that it needs no widget
 * blueprint. A blueprint based on this class provides its own tree, with the widgets that the base class binds. Its
 * delayed hide runs on the world's timers, which stop while the game is paused.
 */
UCLASS(Blueprintable, meta = (DisplayName = "Flitmark Panel"))
class FLITMARKWIDGETS_API UFlitmarkPanel : public UUI_DanmakuNodeSetting
{
	GENERATED_BODY()

protected:
	virtual void InitializeNativeClassData() override;
};
