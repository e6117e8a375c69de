#pragma once

#include "Blueprint/UserWidget.h"
#include "CoreMinimal.h"
#include "DanmakuDataStruct.h"

#include "UI_DanmakuNode.generated.h"

class UCanvasPanel;
class UCanvasPanelSlot;
class UDanmakuTrack;
class UTextBlock;
class UUI_DanmakuNode;

DECLARE_MULTICAST_DELEGATE_OneParam(FOnDanmakuNodeStarted, UUI_DanmakuNode*);
DECLARE_MULTICAST_DELEGATE_OneParam(FOnDanmakuNodeEnded, UUI_DanmakuNode*);
/** 弹幕意外终止事件，如被移除、被隐藏等 */
DECLARE_MULTICAST_DELEGATE_OneParam(FOnDanmakuNodeCanceled, UUI_DanmakuNode*);

/** 弹幕意外终止事件，如被移除、被隐藏等 */
UCLASS()
class FLITMARK_API UUI_DanmakuNode : public UUserWidget
{
	GENERATED_BODY()

private:
	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UTextBlock> NodeContentText;

public:
	/** Raised at the end of Init: the comment has been measured and needs a place. */
	FOnDanmakuNodeStarted OnStarted;

	/** Raised when the display time is over, after the comment has left the canvas. */
	FOnDanmakuNodeEnded OnEnded;

	/** Raised when the widget is torn down, whatever the cause. */
	FOnDanmakuNodeCanceled OnCanceled;

	/**
	 * Puts the comment on the canvas, measures it, fixes its display time and speed, and raises OnStarted. Once, after
	 * subscribing to the events. bInPaused: it starts frozen.
	 */
	void Init(const FDanmakuData& InDanmakuData, UCanvasPanel* InCanvasPanel, bool bInPaused);

	/** Top-left corner on the canvas, in canvas units; needs Init. */
	void SetPosition(const FVector2D& InPosition);
	FVector2D GetPosition() const;

	/** Measured width and height in canvas units; valid from Init on. */
	FVector2D GetNodeSize() const;

	/** Canvas units per second at which a scrolling comment moves left; infinite for a display time of 0. */
	float GetRollSpeed() const;

	const FDanmakuData& GetData() const;

	/** Remembers a lane that holds the comment. */
	void AddUsedTrack(UDanmakuTrack* InTrack);
	/** The lanes in the order in which they were added. */
	TArray<TObjectPtr<UDanmakuTrack>> GetUseTracks() const;

	/** Freezes the comment: neither its time nor its position advances. */
	void Pause();
	void Resume();
	bool IsPaused() const;

protected:
	virtual void NativeOnInitialized() override;
	virtual void NativeConstruct() override;
	virtual void NativeDestruct() override;
	virtual void NativeTick(const FGeometry& MyGeometry, float InDeltaTime) override;

private:
	void ApplyStyle();
	/** Fixes RollDistance, RemainingTime and RollSpeed; draws once from rand(). */
	void ComputeTiming();

	/** 弹幕实际显示对应的画布插槽 */
	UPROPERTY()
	TObjectPtr<UCanvasPanelSlot> NodeCanvasPanelSlot;

	bool bIsPaused = false;
	FDanmakuData Data;
	FVector2D NodeSize = FVector2D(0.0, 0.0);

	/** The canvas's width plus the comment's, in canvas units. */
	float RollDistance = 0.f;

	/** Display time left, in seconds. */
	float RemainingTime = 0.f;

	float RollSpeed = 0.f;

	/** Not reflected: it keeps no lane alive. */
	TArray<TObjectPtr<UDanmakuTrack>> UseTracks;
};
