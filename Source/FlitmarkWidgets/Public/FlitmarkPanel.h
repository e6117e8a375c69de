#pragma once

#include "CoreMinimal.h"
#include "UI_DanmakuNodeSetting.h"

#include "FlitmarkPanel.generated.h"

/**
 * The panel in which the viewer picks mode, size and color, with controls of its own, so that it needs no widget blueprint.
 * A blueprint based on this class brings a tree of its own, with the widgets that the base class binds. Its delayed hide
 * runs on the world's timers, which stand while the game is paused.
 */
UCLASS(Blueprintable, meta = (DisplayName = "Flitmark Panel"))
class FLITMARKWIDGETS_API UFlitmarkPanel : public UUI_DanmakuNodeSetting
{
	GENERATED_BODY()

protected:
	virtual void InitializeNativeClassData() override;
};
