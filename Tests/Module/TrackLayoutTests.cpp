#include "StageFixture.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

class FTrackLayout : public FStageFixture
{
protected:
	/** Lanes are recounted when a comment starts. */
	void Resize(float Height)
	{
		Stage->SetCanvasSize(FVector2f(1920.f, Height));
		Stage->RunFrame(0.f);
		GetManager()->SpawnDanmakuNodeUser(MakeData("0x0"));
	}
	std::vector<int32> CountLanes() const
	{
		const FTrackCounts Counts = Stage->GetTrackCounts();
		return {Counts.Scroll, Counts.Top, Counts.Bottom, Counts.Reverse};
	}
};

TEST_F(FTrackLayout, FollowsFromTheCanvasHeight)
{
	const struct
	{
		float Height;
		std::vector<int32> Lanes;
	} Cases[] = {
		{1080.f, {53, 53, 17, 0}}, {720.f, {35, 35, 11, 0}}, {540.f, {26, 26, 8, 0}}, {100.f, {4, 4, 1, 0}},
		{20.f, {0, 0, 0, 0}},	   {20.2f, {1, 1, 0, 0}},	 {60.5f, {3, 3, 1, 0}},	  {2160.f, {107, 107, 35, 0}},
	};
	for (const auto& Case : Cases)
	{
		Rebuild(MakeOptions(FVector2f(1920.f, Case.Height)));
		EXPECT_EQ(CountLanes(), (std::vector<int32>{0, 0, 0, 0})) << "not laid out yet";
		Stage->Preroll();
		EXPECT_EQ(CountLanes(), Case.Lanes) << Case.Height;
		EXPECT_EQ(GetManager()->GetTrackNum(), Case.Lanes[0]);
	}
}

TEST_F(FTrackLayout, WaitsForTheNextCommentToGrow)
{
	Resize(720.f);
	const std::vector<UDanmakuTrack*> Old = GetTracks("Scroll");
	Stage->SetCanvasSize(FVector2f(1920.f, 1080.f));
	RunFrames(2, 0.f);
	EXPECT_EQ(CountLanes(), (std::vector<int32>{35, 35, 11, 0}));
	Resize(1080.f);
	EXPECT_EQ(CountLanes(), (std::vector<int32>{53, 53, 17, 0}));
	const std::vector<UDanmakuTrack*> New = GetTracks("Scroll");
	EXPECT_TRUE(std::ranges::equal(Old, std::vector(New.begin(), New.begin() + 35))) << "the old lanes stay";
	Stage->SetCanvasSize(FVector2f(640.f, 1080.f));
	Resize(1080.f);
	EXPECT_EQ(CountLanes(), (std::vector<int32>{53, 53, 17, 0})) << "the width does not matter";
}

TEST_F(FTrackLayout, DropsTheFarthestLanesFirstAndTheirCommentsWithThem)
{
	// One comment per lane: top lanes 0 to 52 hold comments 1 to 53, bottom lanes 0 to 16 hold 54 to 70.
	for (int32 Index = 0; Index < 70; ++Index)
	{
		GetManager()->SpawnDanmakuNode(MakeData("50x15", Index < 53 ? EDanmakuMode::TOP : EDanmakuMode::BOTTOM));
	}
	ASSERT_EQ(GetShown().size(), 70u);
	Log.TakeEvents();
	Resize(720.f);
	std::vector<std::string> Expected;
	for (const auto& [Last, First] : {std::pair(53, 36), std::pair(70, 65)})
	{
		for (int32 Number = Last; Number >= First; --Number)
		{
			Expected.push_back("left " + std::to_string(Number));
			Expected.push_back("canceled " + std::to_string(Number));
		}
	}
	EXPECT_EQ(Log.TakeEvents(), Expected);
	EXPECT_EQ(CountLanes(), (std::vector<int32>{35, 35, 11, 0}));
	Resize(10.f);
	EXPECT_EQ(GetShown().size(), 2u) << "the two that made the lanes be counted";
}

TEST_F(FTrackLayout, DropsACommentThatReachesIntoADroppedLane)
{
	UDanmakuTrackManager* Manager = GetManager();
	Manager->SpawnDanmakuNode(MakeData("50x525", EDanmakuMode::TOP));
	Manager->SpawnDanmakuNode(MakeData("50x30", EDanmakuMode::TOP));
	const std::vector<UUI_DanmakuNode*> Nodes = Log.GetNodes();
	ASSERT_EQ(FindLanes("Top", Nodes[0]), (FLaneRun{0, 35}));
	ASSERT_EQ(FindLanes("Top", Nodes[1]), (FLaneRun{35, 2}));
	Resize(740.f);
	ASSERT_EQ(CountLanes(), (std::vector<int32>{36, 36, 12, 0}));
	EXPECT_EQ(FindLanes("Top", Nodes[0]), (FLaneRun{0, 35}));
	EXPECT_EQ(FindLanes("Top", Nodes[1]), FLaneRun()) << "its first lane is left, but not its second";
	EXPECT_EQ(Nodes[1]->GetParent(), nullptr);
}

TEST_F(FTrackLayout, LeavesPlacedCommentsWhereTheyStand)
{
	GetManager()->SpawnDanmakuNode(MakeData("50x15", EDanmakuMode::BOTTOM));
	const UUI_DanmakuNode* Node = GetLastNode();
	const FVector2D Before = Node->GetPosition();
	Resize(1000.f);
	EXPECT_EQ(Node->GetPosition().X, Before.X);
	EXPECT_EQ(Node->GetPosition().Y, Before.Y);
}

} // namespace

} // namespace Flitmark
