#pragma once

#include "Components/CanvasPanel.h"
#include "DanmakuDataStruct.h"
#include "DanmakuTrack.h"
#include "DanmakuTrackManager.h"
#include "Files/FileText.h"
#include "NodeLog.h"
#include "ScriptedRand.h"
#include "Stage/Stage.h"
#include "TimerManager.h"
#include "UI_Danmaku.h"
#include "UI_DanmakuBar.h"
#include "UI_DanmakuNode.h"
#include "UI_DanmakuNodeSetting.h"
#include "WrittenMeasure.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Flitmark
{

/** A comment of a test's document. */
struct FTestComment
{
	/** Seconds of media time. */
	double Time = 0.0;
	/** Starts with its size, as FWrittenMeasure reads it. */
	const char* Content = "100x20";
	int32 Mode = 0;
};

/** The first of the lanes that list a comment, and how many there are; INDEX_NONE if none. */
struct FLaneRun
{
	int32 First = INDEX_NONE;
	int32 Count = 0;
	friend bool operator==(const FLaneRun&, const FLaneRun&) = default;
};

std::ostream& operator<<(std::ostream& Stream, const FLaneRun& Run);

/** A stage of 1920 x 1080 after its preroll; the comments' texts specify their sizes. */
class FStageFixture : public testing::Test
{
protected:
	static constexpr int64 TicksPerSecond = 10'000'000;
	/** rand() values for the short and the long display time. */
	static constexpr int ShortDraw = 0;
	static constexpr int LongDraw = 16384;

	FStageFixture();
	~FStageFixture() override;
	FStageFixture(const FStageFixture&) = delete;
	FStageFixture& operator=(const FStageFixture&) = delete;

	/** Replaces the stage with a new one, before its preroll. */
	void Rebuild(const FStageOptions& InOptions);
	FStageOptions MakeOptions(FVector2f CanvasSize);

	static std::string WriteDocument(const std::vector<FTestComment>& Comments);
	void Load(const std::vector<FTestComment>& Comments);
	/** Sets the media time, in seconds, and runs one frame of no length there. */
	void GoTo(double Seconds);
	/** Runs frames of the given length. */
	void RunFrames(int32 Count, float DeltaTime);

	static FDanmakuData MakeData(const char* Content, EDanmakuMode Mode = EDanmakuMode::SCROLL);
	/** A comment widget on the canvas but in no lane: not the manager's. */
	UUI_DanmakuNode* MakeNode(const FDanmakuData& Data, bool bPaused = false);

	UDanmakuTrackManager* GetManager() const;
	/** Group: "Scroll", "Top" or "Bottom". */
	std::vector<UDanmakuTrack*> GetTracks(const char* Group) const;
	static std::vector<UUI_DanmakuNode*> GetNodes(const UDanmakuTrack* Track);
	FLaneRun FindLanes(const char* Group, const UUI_DanmakuNode* Node) const;
	/** The canvas's children. */
	std::vector<UUI_DanmakuNode*> GetShown() const;
	UUI_DanmakuNode* GetLastNode() const { return Log.GetNodes().back(); }
	FTimerManager& GetTimers() const;
	UClass* GetNodeClass() const;

	template <class T>
	T* FindInBar(const TCHAR* Name) const
	{
		return Cast<T>(Stage->GetBar().GetWidgetFromName(Name));
	}
	template <class T>
	T* FindInPanel(const TCHAR* Name) const
	{
		return Cast<T>(Stage->GetPanel().GetWidgetFromName(Name));
	}
	/** An integer property's value. */
	static int32 GetInt(const UObject* Object, const TCHAR* Name);

	/** Keeps an object of the test alive until the test ends. */
	template <class T>
	T* Keep(T* Object)
	{
		Object->AddToRoot();
		Kept.push_back(Object);
		return Object;
	}

	FScriptedRand Rand;
	FWrittenMeasure Measure;
	FNodeLog Log;
	std::unique_ptr<FStage> Stage;

private:
	void EndStage();

	std::vector<UObject*> Kept;
};

} // namespace Flitmark
