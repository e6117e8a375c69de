#pragma once

#include "CoreMinimal.h"
#include "Templates/SubclassOf.h"
#include "UObject/Object.h"

#include "DanmakuTrackManager.generated.h"

class UCanvasPanel;
class UDanmakuTrack;
class UUI_DanmakuNode;
struct FDanmakuData;

/**
 * Divides the canvas into lanes, one group per mode, and brings comments onto it: creates a comment's widget, finds
 * lanes that it may occupy, and puts it there or takes it off again. Game thread only.
 */
UCLASS()
class FLITMARK_API UDanmakuTrackManager : public UObject
{
	GENERATED_BODY()

public:
	/** The lane pitch in canvas units, the same for all groups. */
	static constexpr double TrackHeight = 15.12;

	UDanmakuTrackManager(const FObjectInitializer& ObjectInitializer);

	/**
	 * Takes the canvas and creates its lanes; call it once. Classes: for scheduled comments, and for the viewer's own.
	 */
	void Init(UCanvasPanel* InCanvasPanel, TSubclassOf<UUI_DanmakuNode> InNodeClass,
			  TSubclassOf<UUI_DanmakuNode> InNodeUserClass);

	/** Shows a scheduled comment if a lane is free; does nothing while paused. */
	void SpawnDanmakuNode(const FDanmakuData& InDanmakuData);

	/** Shows the viewer's own comment, on top of others if no lane is free; while paused, it starts out paused. */
	void SpawnDanmakuNodeUser(const FDanmakuData& InDanmakuData);

	/** How many scroll lanes there are. */
	int32 GetTrackNum() const;

	/** Stops every comment, and shows no scheduled ones until Resume. */
	void Pause();
	void Resume();

	/** Shows the canvas; bResume: also resumes. */
	void Open(bool bResume);

	/** Hides the canvas, removes every comment from it, and pauses. */
	void Close();

	/** Removes every comment that is in a lane from the canvas. */
	void Empty();

	/** Has no effect. */
	void Replay();

protected:
	virtual void BeginDestroy() override;

private:
	/** Adjusts each group to the number of lanes that fit the canvas's current height. */
	void UpdateLocalSize();
	void ResizeGroup(TArray<TObjectPtr<UDanmakuTrack>>& Tracks, int32 Area, int32& TrackNum);
	void AddTracks(TArray<TObjectPtr<UDanmakuTrack>>& Tracks, int32 Count);
	int32 ComputeTrackNum(int32 Area) const;

	/** A new widget of the class for the canvas; null if the class does not fit. */
	UUI_DanmakuNode* CreateNode(TSubclassOf<UUI_DanmakuNode> InClass) const;

	/**
	 * Adds the comment to the lanes from StartIndex on and sets its position; false if there are too few left in the
	 * group.
	 */
	bool AddNodeToScrollTracks(UUI_DanmakuNode* Node, int32 StartIndex, int32 TrackCount);
	bool AddNodeToTopTracks(UUI_DanmakuNode* Node, int32 StartIndex, int32 TrackCount);
	bool AddNodeToBottomTracks(UUI_DanmakuNode* Node, int32 StartIndex, int32 TrackCount);
	bool AddNodeToTracks(const TArray<TObjectPtr<UDanmakuTrack>>& Tracks, UUI_DanmakuNode* Node, int32 StartIndex,
						 int32 TrackCount) const;
	void FinishPlacement(UUI_DanmakuNode* Node, const FVector2D& Position) const;

	/** The lanes for the comment's mode; null for a mode that is not served. */
	const TArray<TObjectPtr<UDanmakuTrack>>* FindGroup(const UUI_DanmakuNode* Node) const;
	/** Adds the comment to its mode's group. */
	void AddNodeToGroup(UUI_DanmakuNode* Node, int32 StartIndex, int32 TrackCount);
	/** Adds the comment to the first lane that accepts it; false if none does. */
	bool AddNodeToFirstFree(UUI_DanmakuNode* Node, const TArray<TObjectPtr<UDanmakuTrack>>& Tracks, int32 TrackCount);

	UFUNCTION()
	void OnDanmakuNodeStarted(UUI_DanmakuNode* DanmakuNode);

	UFUNCTION()
	void OnDanmakuNodeUserStarted(UUI_DanmakuNode* DanmakuNode);

	UFUNCTION()
	void OnDanmakuNodeEnded(UUI_DanmakuNode* DanmakuNode);

	UFUNCTION()
	void OnDanmakuNodeCanceled(UUI_DanmakuNode* DanmakuNode);

	/** Not reflected: the overlay that owns the canvas outlives the manager. */
	UCanvasPanel* CanvasPanel = nullptr;

	TSubclassOf<UUI_DanmakuNode> NodeClass;
	TSubclassOf<UUI_DanmakuNode> NodeUserClass;

	/**
	 * 管理器所管理的轨道类型（仅为逻辑分组，自身无需显示，目前轨道之间可以重叠）
	 * Area：0~100，显示区域占 DanmakuCanvasPanel 总高度的百分比
	 * 滚动、顶部、逆向弹幕的显示区域自画布顶部算起，底部弹幕的显示区域自画布底部算起
	 */
	UPROPERTY()
	TArray<TObjectPtr<UDanmakuTrack>> ScrollTracks;
	int32 ScrollArea = 75;
	int32 ScrollTrackNum = 0;

	UPROPERTY()
	TArray<TObjectPtr<UDanmakuTrack>> TopTracks;
	int32 TopArea = 75;
	int32 TopTrackNum = 0;

	UPROPERTY()
	TArray<TObjectPtr<UDanmakuTrack>> BottomTracks;
	int32 BottomArea = 25;
	int32 BottomTrackNum = 0;

	UPROPERTY()
	TArray<TObjectPtr<UDanmakuTrack>> ReverseTracks;
	int32 ReverseArea = 75;
	int32 ReverseTrackNum = 0;

	bool bIsPaused = false;
};
