#pragma once

#include "Blueprint/WidgetObserver.h"
#include "JsonLine.h"
#include "Overlay/ScaledMeasure.h"
#include "Overlay/OverlaySettings.h"
#include "Stage/Stage.h"
#include "TraceScript.h"

#include <cstdio>
#include <optional>
#include <string>
#include <unordered_map>

class UUI_DanmakuNode;

namespace Flitmark
{

struct FTraceOptions
{
	FVector2f Size{1920.f, 1080.f};
	/** Whole frames per second, 1 to 1000. */
	int32 Fps = 60;
	/** Media time of frame 0, in ticks. */
	int64 Start = 0;
	/** How many frames to run; without it until all that was filed is over. */
	std::optional<int64> Frames;
	uint32 Seed = 1;
	bool bPositions = false;
	FSlateFontMeasure* Measure = nullptr;
	/** Area, speed, font scale and offset count. */
	FOverlaySettings Settings;
	/** The document as it was read; empty for none. */
	std::optional<FString> Document;
	FTraceScript Script;
};

/** Runs the overlay on a clock of its own and writes what happens, a JSON line an event. */
class FTraceRunner final : private IWidgetObserver
{
public:
	FTraceRunner(FTraceOptions InOptions, std::FILE* InOutput);
	~FTraceRunner() override;

	/** False with OutError set where the stage cannot be built or the output cannot be written. */
	bool Run(std::string& OutError);

private:
	struct FNodeInfo
	{
		int64 Id = 0;
		bool bPlaced = false;
	};

	int64 GetMediaTime() const;
	/** The time by which comments are due. */
	int64 GetStageTime() const { return Options.Settings.GetStageTime(GetMediaTime()); }
	bool RunFrame(int64 InLastSecond, bool bInEndless);
	void Execute(const FTraceStep& InStep);

	void OnWidgetCreated(UUserWidget& InWidget) override;
	void OnPositionSet(UCanvasPanelSlot& InSlot) override;
	void OnWidgetLeaving(UWidget& InWidget) override;
	void OnNodeEnded(UUI_DanmakuNode* InNode);
	void OnNodeCanceled(UUI_DanmakuNode* InNode);

	/** Begins a line; the event's own members follow. */
	void BeginLine(std::string_view InEvent);
	void EndLine();
	void WriteIdLine(std::string_view InEvent, const UUI_DanmakuNode* InNode);
	void AddRecord(const UUI_DanmakuNode& InNode, const FNodeInfo& InInfo);
	int64 FindLane(const UUI_DanmakuNode& InNode) const;
	void WriteReport();
	void WritePositions();

	FTraceOptions Options;
	std::FILE* Output;
	FScaledMeasure Scaled;
	std::unique_ptr<FStage> Stage;
	FJsonLine Line;
	std::unordered_map<const UUserWidget*, FNodeInfo> Nodes;
	int64 LastId = 0;
	/** False outside the frames that are traced. */
	bool bTracing = false;

	int64 Frame = 0;
	/** Media time at which the player's count of frames began. */
	int64 Base = 0;
	/** Frames that ended since then with the player playing. */
	int64 PlayedFrames = 0;
	bool bPlaying = true;
	std::size_t NextStep = 0;
	/** Report lines to be written at the end of this frame. */
	int32 PendingReports = 0;
	/** Frames in a row in which nothing was left to come. */
	int64 IdleFrames = 0;
};

} // namespace Flitmark
