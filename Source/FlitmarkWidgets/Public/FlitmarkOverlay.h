#pragma once

#include "CoreMinimal.h"
#include "UI_Danmaku.h"

#include "FlitmarkOverlay.generated.h"

/**
 * The overlay with a built-in canvas and comment classes, so that it needs no widget blueprint. It takes no clicks. A
 * blueprint based on this class provides its own tree, with a canvas panel "DanmakuCanvasPanel", and inherits the two
 * comment classes.
 *
 * An overlay that leaves the screen stops working, even if it is added again: hide it instead. The engine neither
 * paints nor ticks what is far outside the clip rectangle: call Empty after the canvas has shrunk a lot.
 */
UCLASS(Blueprintable, meta = (DisplayName = "Flitmark Overlay"))
class FLITMARKWIDGETS_API UFlitmarkOverlay : public UUI_Danmaku
{
	GENERATED_BODY()

public:
	UFlitmarkOverlay(const FObjectInitializer& ObjectInitializer);

	/**
	 * Makes the comments of the video's current second due again; without this, those of a document loaded during that
	 * second would be missed. Raises a blueprint's Construct event again.
	 */
	void RestartSecond();

protected:
	virtual void InitializeNativeClassData() override;
};
