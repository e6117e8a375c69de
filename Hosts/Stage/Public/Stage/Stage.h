#pragma once

#include "CoreMinimal.h"
#include "MediaPlayer.h"
#include "UObject/UObjectGlobals.h"

#include <memory>
#include <string>
#include <vector>

class FSlateFontMeasure;
class UFlitmarkPlayer;
class UCanvasPanel;
class UCanvasPanelSlot;
class UDanmakuTrackManager;
class UTextBlock;
class UUI_Danmaku;
class UUI_DanmakuBar;
class UUI_DanmakuNode;
class UUI_DanmakuNodeSetting;
class UWorld;

namespace Flitmark
{

/** A whole number among the editable settings of the bar or the panel, as edited on the widget. */
struct FStageSetting
{
	FName Name;
	int32 Value = 0;
};

struct FStageOptions
{
	/** The canvas in canvas units; at 0 x 0 the overlay is not laid out. */
	FVector2f CanvasSize = FVector2f::ZeroVector;

	/** For the C runtime's generator, from which the overlay draws. */
	uint32 Seed = 1;

	/** Measures the comments; outlives the stage. */
	FSlateFontMeasure* Measure = nullptr;

	std::vector<FStageSetting> Settings;

	/** Widget blueprints, which outlive the stage, instead of the ready-made classes. */
	UClass* OverlayClass = nullptr;
	UClass* BarClass = nullptr;
	UClass* PanelClass = nullptr;
};

/** A comment as it is to be painted. */
struct FPaintComment
{
	/** The same from frame to frame, and no other comment's. */
	uint64 Key = 0;

	/** Tells how fast it moves. */
	const UUI_DanmakuNode* Node = nullptr;
	/** Text, font and color. */
	const UTextBlock* Text = nullptr;

	/** Top-left corner and size in canvas units. */
	FVector2D Position = FVector2D::ZeroVector;
	FVector2D Size = FVector2D::ZeroVector;

	/** Made as the viewer's own. */
	bool bViewers = false;
};

/** How many lanes each group has. */
struct FTrackCounts
{
	int32 Scroll = 0;
	int32 Top = 0;
	int32 Bottom = 0;
	int32 Reverse = 0;
};

/**
 * Runs the overlay, the bar and the panel without an engine: a world, a media clock that the host sets, frames. One stage
 * at a time in a process; everything on one thread.
 */
class FStage final : private IMediaSource, private FGCObject
{
public:
	/** Null with OutError set where an option's class cannot be the overlay, the bar or the panel. */
	static std::unique_ptr<FStage> Create(const FStageOptions& InOptions, std::string& OutError);
	~FStage() override;

	/** Taken over at the next frame's layout. */
	void SetCanvasSize(FVector2f InSize) { CanvasSize = InSize; }
	FVector2f GetCanvasSize() const { return CanvasSize; }

	/** The media clock, in 100-ns ticks. */
	void SetMediaTime(int64 InTicks) { MediaTicks = InTicks; }
	int64 GetMediaTime() const { return MediaTicks; }
	void SetPlaying(bool bInPlaying) { bPlaying = bInPlaying; }
	void SetUrl(const FString& InUrl) { Url = InUrl; }

	/**
	 * Lays the overlay out before the first frame, at a media time before 0, so that a document loaded next is taken and
	 * second 0 is still to come. InTicks: a media time before 0; comments of its second start, if there are any by then.
	 */
	void Preroll(int64 InTicks = PrerollTicks);

	/** One frame: timers, layout, ticks, teardown. InDeltaTime: seconds. */
	void RunFrame(float InDeltaTime) { RunFrame(InDeltaTime, InDeltaTime); }
	/** The same where the comments' time is not the viewer's: InTimerTime is the time that the timers count. */
	void RunFrame(float InDeltaTime, float InTimerTime);

	/** What is on the screen after the last frame, in painting order. */
	void CollectPaint(std::vector<FPaintComment>& OutComments) const;

	/** What a game would put on its screen; the overlay, the bar and the panel are its parts. */
	UFlitmarkPlayer& GetScreen() const { return *Screen; }
	UUI_Danmaku& GetOverlay() const { return *Overlay; }
	UUI_DanmakuBar& GetBar() const { return *Bar; }
	UUI_DanmakuNodeSetting& GetPanel() const { return *Panel; }
	UCanvasPanel& GetCanvas() const { return *Canvas; }
	/** All 0 before the overlay has made its lanes. */
	FTrackCounts GetTrackCounts() const;
	/** Whether a comment was made as the viewer's own. */
	bool IsViewerComment(const UUI_DanmakuNode& InNode) const;

private:
	/** A second before 0. */
	static constexpr int64 PrerollTicks = -10'000'000;

	explicit FStage(const FStageOptions& InOptions);
	bool FindParts(std::string& OutError);
	void Start(const FStageOptions& InOptions);
	void CollectIfDue();

	FTimespan GetTime() const override { return FTimespan(MediaTicks); }
	bool IsPlaying() const override { return bPlaying; }
	const FString& GetUrl() const override { return Url; }
	bool Play() override;
	bool Pause() override;
	bool Seek(const FTimespan& InTime) override;
	void AddReferencedObjects(FReferenceCollector& InCollector) override;

	UWorld* World = nullptr;
	UMediaPlayer* Player = nullptr;
	UFlitmarkPlayer* Screen = nullptr;
	UUI_Danmaku* Overlay = nullptr;
	UUI_DanmakuBar* Bar = nullptr;
	UUI_DanmakuNodeSetting* Panel = nullptr;
	UCanvasPanel* Canvas = nullptr;
	/** The class that the overlay makes the viewer's own comments of. */
	const UClass* ViewerCommentClass = nullptr;

	FVector2f CanvasSize;
	int64 MediaTicks = 0;
	bool bPlaying = true;
	FString Url;
	/** Objects alive after the last collection. */
	int32 NumKept = 0;
};

} // namespace Flitmark
