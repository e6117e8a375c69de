#pragma once

#include "Blueprint/UserWidget.h"
#include "CoreMinimal.h"
#include "DanmakuDataStruct.h"
#include "Templates/SubclassOf.h"

#include "UI_Danmaku.generated.h"

class UCanvasPanel;
class UDanmakuTrackManager;
class UMediaPlayer;
class UUI_DanmakuBar;
class UUI_DanmakuNode;
class UUI_DanmakuNodeSetting;

/**
 * The overlay that a host places over its video. It owns the canvas, the schedule of comments and the lanes; every
 * frame it reads the media time and brings the comments of a new second onto the canvas. Game thread only.
 */
UCLASS()
class FLITMARK_API UUI_Danmaku : public UUserWidget
{
	GENERATED_BODY()

public:
	/**
	 * Connects the player and, if given, the bar and the panel in which the viewer styles comments. Call it once:
	 * another call binds the overlay to the bar's events again, so that each comment sent shows twice.
	 */
	void Init(UMediaPlayer* InMediaPlayer, UUI_DanmakuBar* InDanmakuBar, UUI_DanmakuNodeSetting* InDanmakuNodeSetting);

	/**
	 * Replaces the schedule with a comment document's: a JSON object whose "datas" lists the comments. Any other text
	 * leaves the schedule empty. Ignored before the first frame with a laid-out canvas and a media player.
	 */
	void LoadDanmaku(const FString& JsonString);

	/** Removes every comment from the canvas; the schedule stays. Ignored before the first laid-out frame. */
	void Empty();

	/** The video pauses: comments freeze, and none start. Ignored before the first laid-out frame. */
	void Pause();

	/** The video resumes. Ignored before the first laid-out frame. */
	void Resume();

protected:
	virtual void NativeConstruct() override;
	virtual void NativeDestruct() override;
	virtual void NativeTick(const FGeometry& MyGeometry, float InDeltaTime) override;

private:
	/** Files a copy of the record under the whole second of its spawn time, after those already there. */
	void AddDataToMap(const FDanmakuData& InDanmakuData);
	/** Files the record itself. */
	void AddDataToMap(FDanmakuData&& InDanmakuData);
	TArray<FDanmakuData>& FindBucket(const FDanmakuData& InDanmakuData);

	/** Creates the track manager once canvas and player are there; true while it exists. */
	bool EnsureTrackManager();
	bool HasLiveTrackManager() const;

	/** The bar's send event: shows the viewer's comment at once and files it. Ignored without a track manager. */
	UFUNCTION()
	void OnDanmakuSend(const FString& InURL, const int64& InTime, const FString& InContent, const EDanmakuMode& InMode,
					   const int32& InFontSize, const FString& InFontColor);

	/**
	 * The bar's check box: opens or closes the lanes and the bar. Before the first laid-out frame there are no lanes
	 * yet: the bar follows at once, and the lanes start out closed if the box is unchecked by then.
	 */
	UFUNCTION()
	void OnOpenDanmakuButtonClicked(bool bIsChecked);

	UPROPERTY(meta = (BindWidget))
	TObjectPtr<UCanvasPanel> DanmakuCanvasPanel;

	UPROPERTY()
	TObjectPtr<UUI_DanmakuBar> DanmakuBar;

	UPROPERTY(EditDefaultsOnly, Category = "UI")
	TSubclassOf<UUI_DanmakuNode> DanmakuNodeClass;

	UPROPERTY(EditDefaultsOnly, Category = "UI")
	TSubclassOf<UUI_DanmakuNode> DanmakuNodeUserClass;

	/** Key of the last media second processed; -1 tick if none. */
	FTimespan LastSpawnSecond = FTimespan(0);

	/** Comments by the whole second of their spawn time. */
	TMap<FTimespan, TArray<FDanmakuData>> DanmakuDataMap;

	UPROPERTY()
	TObjectPtr<UMediaPlayer> MediaPlayer;

	UPROPERTY()
	TObjectPtr<UDanmakuTrackManager> TrackManager;

	bool bIsTrackManagerCreated = false;
	bool bIsPaused = false;

	/** Whether the viewer unchecked the bar's check box before there were lanes to close. */
	bool bIsSwitchedOffEarly = false;
};
