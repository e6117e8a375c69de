#include "StageFixture.h"

namespace Flitmark
{

namespace
{

constexpr EDanmakuMode Scroll = EDanmakuMode::SCROLL;
constexpr EDanmakuMode Top = EDanmakuMode::TOP;
constexpr EDanmakuMode Bottom = EDanmakuMode::BOTTOM;

class FPlacement : public FStageFixture
{
protected:
	FPlacement() { Rand.GiveAlways(ShortDraw); }

	UUI_DanmakuNode* Spawn(const char* Content, EDanmakuMode Mode = Scroll)
	{
		GetManager()->SpawnDanmakuNode(MakeData(Content, Mode));
		return GetLastNode();
	}
	UUI_DanmakuNode* SpawnUser(const char* Content, EDanmakuMode Mode = Scroll)
	{
		GetManager()->SpawnDanmakuNodeUser(MakeData(Content, Mode));
		return GetLastNode();
	}
	/** A comment in each requested lane. */
	void Fill(EDanmakuMode Mode, int32 Count)
	{
		for (int32 Index = 0; Index < Count; ++Index)
		{
			ASSERT_NE(Spawn("100x15", Mode)->GetParent(), nullptr);
		}
	}
};

TEST_F(FPlacement, TakesAsManyLanesAsItIsHigh)
{
	const struct
	{
		const char* Content;
		int32 Lanes;
	} Cases[] = {
		{"10x0", 0},
		{"10x0.001", 1},
		{"10x15.12", 1},
		{"10x15.121", 2},
		{"10x20", 2},
		{"10x30.24", 2},
		{"10x32", 3},
		// The product with the reciprocal of the pitch is a bit above 3.
		{"10x45.36", 4},
	};
	for (const auto& Case : Cases)
	{
		const UUI_DanmakuNode* Node = Spawn(Case.Content, Top);
		EXPECT_EQ(FindLanes("Top", Node).Count, Case.Lanes) << Case.Content;
		EXPECT_NE(Node->GetParent(), nullptr);
	}
}

TEST_F(FPlacement, IsNotMadeBeyondTheGroup)
{
	const char* const Heights[] = {"10x802", "10x1e9", "10x3.3e10", "10x1e300", "10xinf", "10xnan"};
	for (const char* Content : Heights)
	{
		for (const EDanmakuMode Mode : {Scroll, Top, Bottom})
		{
			EXPECT_EQ(Spawn(Content, Mode)->GetParent(), nullptr) << Content;
			EXPECT_EQ(SpawnUser(Content, Mode)->GetParent(), nullptr) << Content;
		}
	}
	EXPECT_TRUE(GetShown().empty());
	EXPECT_NE(Spawn("10x801")->GetParent(), nullptr) << "53 lanes are 801.36 high";
}

TEST_F(FPlacement, AsksOnlyTheFirstLaneOfARun)
{
	// Lane 0 is free again, lane 1 is not.
	UUI_DanmakuNode* First = Spawn("100x15", Top);
	const UUI_DanmakuNode* Second = Spawn("100x15", Top);
	First->RemoveFromParent();
	const UUI_DanmakuNode* High = Spawn("100x30", Top);
	EXPECT_EQ(FindLanes("Top", High), (FLaneRun{0, 2}));
	EXPECT_EQ(GetNodes(GetTracks("Top")[1]), (std::vector{const_cast<UUI_DanmakuNode*>(Second), GetLastNode()}));
}

TEST_F(FPlacement, EndsWithTheFirstWillingLane)
{
	// 17 bottom lanes, only the last one free: a comment that needs two is removed, even the viewer's own, without a
	// draw.
	Fill(Bottom, 16);
	const int32 NumCalls = FScriptedRand::NumCalls();
	EXPECT_EQ(Spawn("100x30", Bottom)->GetParent(), nullptr);
	EXPECT_EQ(SpawnUser("100x30", Bottom)->GetParent(), nullptr);
	EXPECT_EQ(FScriptedRand::NumCalls(), NumCalls + 2) << "the display times alone";
	EXPECT_EQ(FindLanes("Bottom", Spawn("100x15", Bottom)), (FLaneRun{16, 1}));
}

TEST_F(FPlacement, DropsWhatHasNoLane)
{
	Fill(Scroll, 53);
	EXPECT_EQ(Spawn("100x15")->GetParent(), nullptr);
	for (const int32 Mode : {3, 4, -1, MAX_int32})
	{
		EXPECT_EQ(Spawn("100x15", static_cast<EDanmakuMode>(Mode))->GetParent(), nullptr) << Mode;
		EXPECT_EQ(SpawnUser("100x15", static_cast<EDanmakuMode>(Mode))->GetParent(), nullptr) << Mode;
	}
	EXPECT_EQ(GetShown().size(), 53u);
	Rebuild(MakeOptions(FVector2f(1920.f, 15.f)));
	Stage->Preroll();
	for (const EDanmakuMode Mode : {Scroll, Top, Bottom})
	{
		EXPECT_EQ(Spawn("100x15", Mode)->GetParent(), nullptr) << "no lanes at all";
		EXPECT_EQ(SpawnUser("100x15", Mode)->GetParent(), nullptr);
	}
}

TEST_F(FPlacement, IsForcedForTheViewersOwn)
{
	const struct
	{
		EDanmakuMode Mode;
		const char* Content;
		int Draw;
		int32 Lane;
	} Cases[] = {
		// r = 53 choices of a lane.
		{Scroll, "100x15", 0, 0},
		{Scroll, "100x15", 618, 0},
		{Scroll, "100x15", 619, 1},
		{Scroll, "100x15", 16384, 26},
		{Scroll, "100x15", 32766, 52},
		{Scroll, "100x15", 32767, 52},
		{Scroll, "100x15", 32768, 0},
		// r = 5: 49 lanes of 53.
		{Top, "100x740", 32767, 4},
		{Top, "100x740", 13107, 2},
		{Top, "100x740", 13106, 1},
		// r = 1: the whole group.
		{Bottom, "100x250", 0, 0},
		{Bottom, "100x250", 32767, 0},
	};
	Fill(Scroll, 53);
	Fill(Top, 53);
	Fill(Bottom, 17);
	for (const auto& Case : Cases)
	{
		Rand.Give({ShortDraw, Case.Draw});
		const UUI_DanmakuNode* Node = SpawnUser(Case.Content, Case.Mode);
		const char* Group = Case.Mode == Scroll ? "Scroll" : Case.Mode == Top ? "Top" : "Bottom";
		EXPECT_EQ(FindLanes(Group, Node).First, Case.Lane) << Case.Content << " with " << Case.Draw;
		EXPECT_TRUE(Stage->IsViewerComment(*Node));
	}
}

TEST_F(FPlacement, IsFreeForTheViewersOwnWhereALaneIs)
{
	Spawn("100x30");
	const int32 NumCalls = FScriptedRand::NumCalls();
	EXPECT_EQ(FindLanes("Scroll", SpawnUser("100x15")), (FLaneRun{2, 1}));
	EXPECT_EQ(FScriptedRand::NumCalls(), NumCalls + 1) << "only its display time is drawn";
}

TEST_F(FPlacement, DrawsTheSameFromTheSameSeed)
{
	const auto Run = [this](uint32 Seed)
	{
		FStageOptions Options = MakeOptions(FVector2f(1920.f, 1080.f));
		Options.Seed = Seed;
		Rebuild(Options);
		Stage->Preroll();
		std::vector<double> Drawn;
		for (int32 Index = 0; Index < 80; ++Index)
		{
			const UUI_DanmakuNode* Node = SpawnUser("100x15");
			Drawn.push_back(Node->GetPosition().Y + static_cast<double>(Node->GetRollSpeed()));
		}
		return Drawn;
	};
	// The C runtime's own numbers.
	Rand.Reset();
	const std::vector<double> First = Run(7);
	EXPECT_EQ(Run(7), First);
	EXPECT_NE(Run(8), First);
}

TEST_F(FPlacement, WhilePausedIsForTheViewersOwnAlone)
{
	GetManager()->Pause();
	GetManager()->SpawnDanmakuNode(MakeData("100x30"));
	EXPECT_TRUE(Log.GetNodes().empty());
	const UUI_DanmakuNode* Node = SpawnUser("100x30");
	EXPECT_EQ(FindLanes("Scroll", Node), (FLaneRun{0, 2}));
	EXPECT_TRUE(Node->IsPaused());
	RunFrames(20, 1.f);
	EXPECT_EQ(Node->GetPosition().X, 1920.0);
	GetManager()->Resume();
	RunFrames(1, 1.f);
	EXPECT_EQ(Node->GetPosition().X, 1920.0 - 252.5);
}

TEST_F(FPlacement, NeedsAClassOfACommentWidget)
{
	UClass* const Wrong[] = {nullptr, UDanmakuTrack::StaticClass(), UUserWidget::StaticClass()};
	for (UClass* Class : Wrong)
	{
		UDanmakuTrackManager* Manager = Keep(NewObject<UDanmakuTrackManager>(&Stage->GetOverlay()));
		Manager->Init(&Stage->GetCanvas(), Class, Class);
		Manager->SpawnDanmakuNode(MakeData("100x30"));
		Manager->SpawnDanmakuNodeUser(MakeData("100x30"));
	}
	EXPECT_TRUE(Log.GetNodes().empty());
	EXPECT_TRUE(GetShown().empty());
}

} // namespace

} // namespace Flitmark
