#include "StageFixture.h"

namespace Flitmark
{

namespace
{

class FPlayback : public FStageFixture
{
protected:
	FPlayback() { Rand.GiveAlways(ShortDraw); }

	/** One comment per group, in this order. */
	void SpawnThree()
	{
		for (const EDanmakuMode Mode : {EDanmakuMode::SCROLL, EDanmakuMode::TOP, EDanmakuMode::BOTTOM})
		{
			GetManager()->SpawnDanmakuNode(MakeData("100x30", Mode));
		}
	}
	int32 CountPaused() const
	{
		int32 Count = 0;
		for (const UUI_DanmakuNode* Node : GetShown())
		{
			Count += Node->IsPaused() ? 1 : 0;
		}
		return Count;
	}
	/** Whether a scheduled comment would be shown now. */
	bool Shows()
	{
		const std::size_t Before = Log.GetNodes().size();
		GetManager()->SpawnDanmakuNode(MakeData("100x30"));
		return Log.GetNodes().size() > Before;
	}
	ESlateVisibility CanvasVisibility() const { return Stage->GetCanvas().GetVisibility(); }
};

TEST_F(FPlayback, StopsAndResumesEveryGroup)
{
	SpawnThree();
	GetManager()->Pause();
	GetManager()->Pause();
	EXPECT_EQ(CountPaused(), 3);
	EXPECT_FALSE(Shows());
	RunFrames(20, 1.f);
	EXPECT_EQ(GetShown().size(), 3u) << "their time is frozen";
	GetManager()->Resume();
	EXPECT_EQ(CountPaused(), 0);
	EXPECT_TRUE(Shows());
	RunFrames(20, 1.f);
	EXPECT_TRUE(GetShown().empty());
}

TEST_F(FPlayback, PausesWithoutLanes)
{
	Rebuild(MakeOptions(FVector2f(1920.f, 10.f)));
	Stage->Preroll();
	ASSERT_EQ(GetManager()->GetTrackNum(), 0);
	GetManager()->Pause();
	EXPECT_FALSE(Shows());
}

TEST_F(FPlayback, ClosesHiddenClearedAndPaused)
{
	SpawnThree();
	Log.TakeEvents();
	GetManager()->Close();
	EXPECT_EQ(CanvasVisibility(), ESlateVisibility::Hidden);
	EXPECT_TRUE(GetShown().empty());
	EXPECT_FALSE(Shows());
	EXPECT_EQ(Log.TakeEvents(),
			  (std::vector<std::string>{"left 3", "canceled 3", "left 2", "canceled 2", "left 1", "canceled 1"}));
	for (const char* Group : {"Scroll", "Top", "Bottom"})
	{
		EXPECT_TRUE(GetNodes(GetTracks(Group)[0]).empty()) << Group;
		EXPECT_FALSE(GetTracks(Group).empty()) << "the lanes stay";
	}
	GetManager()->Open(false);
	EXPECT_EQ(CanvasVisibility(), ESlateVisibility::SelfHitTestInvisible);
	EXPECT_TRUE(GetShown().empty());
	EXPECT_FALSE(Shows()) << "open, and still paused";
	GetManager()->Resume();
	EXPECT_TRUE(Shows());
}

TEST_F(FPlayback, OpensRunning)
{
	GetManager()->Close();
	GetManager()->Open(true);
	EXPECT_EQ(CanvasVisibility(), ESlateVisibility::SelfHitTestInvisible);
	EXPECT_TRUE(Shows());
	EXPECT_EQ(CountPaused(), 0);
}

TEST_F(FPlayback, ResumesBehindAClosedCanvas)
{
	GetManager()->Close();
	GetManager()->Resume();
	EXPECT_EQ(CanvasVisibility(), ESlateVisibility::Hidden);
	EXPECT_TRUE(Shows());
	const UUI_DanmakuNode* Node = GetLastNode();
	RunFrames(3, 1.f);
	EXPECT_EQ(Node->GetPosition().X, 1920.0) << "what is hidden is not ticked";
	GetManager()->Open(false);
	RunFrames(1, 1.f);
	EXPECT_LT(Node->GetPosition().X, 1920.0);
}

TEST_F(FPlayback, EmptiesTheLanesAndNothingElse)
{
	SpawnThree();
	GetManager()->Pause();
	GetManager()->Empty();
	EXPECT_TRUE(GetShown().empty());
	EXPECT_FALSE(Shows()) << "still paused";
	EXPECT_EQ(CanvasVisibility(), ESlateVisibility::Visible);
	EXPECT_EQ(GetManager()->GetTrackNum(), 53);
}

TEST_F(FPlayback, ReplayDoesNothing)
{
	SpawnThree();
	Log.TakeEvents();
	GetManager()->Replay();
	EXPECT_EQ(GetShown().size(), 3u);
	EXPECT_TRUE(Log.TakeEvents().empty());
	EXPECT_TRUE(Shows());
}

TEST_F(FPlayback, EndsWithItsLanes)
{
	const int32 Others = GetTimers().Num() - 53 - 53 - 17;
	SpawnThree();
	const std::vector<UDanmakuTrack*> Lanes = GetTracks("Scroll");
	for (UDanmakuTrack* Lane : Lanes)
	{
		Keep(Lane);
	}
	UDanmakuTrackManager* Manager = GetManager();
	Manager->ConditionalBeginDestroy();
	EXPECT_TRUE(GetTracks("Scroll").empty());
	for (const UDanmakuTrack* Lane : Lanes)
	{
		EXPECT_TRUE(GetNodes(Lane).empty());
		EXPECT_FALSE(IsValid(Lane));
	}
	EXPECT_EQ(GetTimers().Num(), Others + 53 + 17) << "top and bottom lanes are the collector's";
	EXPECT_EQ(GetShown().size(), 3u);
	RunFrames(20, 1.f);
	EXPECT_TRUE(GetShown().empty()) << "the comments end by themselves";
}

} // namespace

} // namespace Flitmark
