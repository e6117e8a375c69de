#include "StageFixture.h"

namespace Flitmark
{

namespace
{

constexpr double Hour = 3600.0;

class FOverlay : public FStageFixture
{
protected:
	std::size_t CountNew()
	{
		const std::size_t New = Log.GetNodes().size() - Known;
		Known = Log.GetNodes().size();
		return New;
	}

private:
	std::size_t Known = 0;
};

TEST_F(FOverlay, StartsTheCommentsOfEachSecondThatItEnters)
{
	Load({{0.0}, {-0.5}, {4.9}, {5.0}, {5.5}, {10.0}, {60.0}, {60.5}, {60.9}, {Hour}, {24 * Hour - 1.0}, {24 * Hour}});
	const struct
	{
		double Time;
		std::size_t Started;
	} Steps[] = {
		{0.0, 2},
		{0.0, 0},
		{0.5, 0},
		{4.9, 1},
		{5.0, 2},
		{5.0, 0},
		{5.99, 0},
		{60.2, 3},
		{10.0, 1},
		{5.99, 2},
		{0.0, 2},
		{Hour, 1},
		{24 * Hour - 0.5, 1},
		{24 * Hour, 2},
		{25 * Hour, 1},
		{26 * Hour, 0},
		{240 * Hour, 2},
		{1.0, 0},
		{10.5, 1},
	};
	for (const auto& Step : Steps)
	{
		GoTo(Step.Time);
		EXPECT_EQ(CountNew(), Step.Started) << "at " << Step.Time;
	}
}

TEST_F(FOverlay, ShowsSecondZeroAfterItsPreroll)
{
	Load({{0.0}});
	EXPECT_EQ(CountNew(), 0u);
	Stage->RunFrame(0.f);
	EXPECT_EQ(CountNew(), 1u);
	EXPECT_EQ(GetLastNode()->GetPosition().X, 1920.0);
}

TEST_F(FOverlay, TicksItsNewCommentsInTheirFirstFrame)
{
	Load({{0.0, "200x30"}});
	Rand.Give({ShortDraw});
	Stage->RunFrame(0.1f);
	EXPECT_EQ(GetLastNode()->GetPosition().X, 1920.0 - static_cast<double>(0.1f * 265.f));
}

TEST_F(FOverlay, SkipsTheSecondsOfAPause)
{
	Load({{0.0}, {1.0}, {2.0}, {3.0}});
	GoTo(0.0);
	Stage->GetOverlay().Pause();
	GoTo(1.0);
	GoTo(2.0);
	EXPECT_TRUE(GetLastNode()->IsPaused());
	EXPECT_EQ(CountNew(), 1u);
	GoTo(3.0);
	Stage->GetOverlay().Resume();
	GoTo(3.5);
	EXPECT_EQ(CountNew(), 1u) << "the second that it is in";
	Stage->GetOverlay().Pause();
	GoTo(3.9);
	Stage->GetOverlay().Resume();
	GoTo(3.9);
	EXPECT_EQ(CountNew(), 0u) << "the second in which it paused";
}

TEST_F(FOverlay, TakesALaterDocumentsSecondAtTheNextEntry)
{
	GoTo(5.0);
	Load({{5.5}});
	GoTo(5.9);
	EXPECT_EQ(CountNew(), 0u);
	GoTo(6.0);
	GoTo(5.0);
	EXPECT_EQ(CountNew(), 1u);
}

TEST_F(FOverlay, EmptiesTheCanvasAndKeepsTheSchedule)
{
	Load({{0.0}, {1.0}, {1.0, "50x30", 1}});
	GoTo(0.0);
	// In no lane.
	MakeNode(MakeData("10x10"));
	Stage->GetOverlay().Empty();
	EXPECT_TRUE(GetShown().empty());
	GoTo(0.5);
	EXPECT_TRUE(GetShown().empty()) << "the second is not new again";
	GoTo(1.0);
	EXPECT_EQ(GetShown().size(), 2u);
	EXPECT_EQ(GetShown()[0]->GetPosition().Y, 0.0) << "the lanes are free again";
}

TEST_F(FOverlay, HasNoLanesBeforeItIsLaidOut)
{
	Rebuild(MakeOptions(FVector2f(0.f, 0.f)));
	UUI_Danmaku& Overlay = Stage->GetOverlay();
	for (int32 Frame = 0; Frame < 3; ++Frame)
	{
		GoTo(0.0);
		Overlay.Pause();
		Overlay.Resume();
		Overlay.Pause();
		Overlay.Empty();
	}
	EXPECT_EQ(GetManager(), nullptr);
	Stage->SetCanvasSize(FVector2f(1920.f, 1080.f));
	GoTo(0.0);
	ASSERT_NE(GetManager(), nullptr);
	Load({{1.0}});
	GoTo(1.0);
	EXPECT_EQ(CountNew(), 1u) << "the early pause left no trace";
	EXPECT_FALSE(GetLastNode()->IsPaused());
}

TEST_F(FOverlay, IsLaidOutInOneDimension)
{
	for (const FVector2f Size : {FVector2f(1920.f, 0.f), FVector2f(0.f, 1080.f)})
	{
		Rebuild(MakeOptions(Size));
		Stage->Preroll();
		ASSERT_NE(GetManager(), nullptr);
		Load({{0.0, "10x10"}});
		GoTo(0.0);
		EXPECT_EQ(GetShown().size(), Size.Y > 0.f ? 1u : 0u);
	}
}

TEST_F(FOverlay, WaitsForAMediaPlayer)
{
	Rebuild(MakeOptions(FVector2f(1920.f, 1080.f)));
	Stage->GetOverlay().Init(nullptr, nullptr, nullptr);
	RunFrames(3, 0.1f);
	EXPECT_EQ(GetManager(), nullptr);
	UMediaPlayer* Player = Keep(NewObject<UMediaPlayer>());
	Stage->GetOverlay().Init(Player, nullptr, nullptr);
	RunFrames(1, 0.1f);
	EXPECT_NE(GetManager(), nullptr);
}

TEST_F(FOverlay, EndsWithItsWidget)
{
	Load({{0.0}, {1.0}, {1.0, "50x30", 1}});
	GoTo(0.0);
	UUI_Danmaku* Overlay = Keep(&Stage->GetOverlay());
	Log.TakeEvents();
	Overlay->RemoveFromParent();
	EXPECT_EQ(Log.TakeEvents(), std::vector<std::string>{"canceled 1"});
	EXPECT_FALSE(IsValid(GetManager()));
	GoTo(1.0);
	EXPECT_EQ(CountNew(), 1u) << "the first one alone";
	// What a host may still call.
	Overlay->Pause();
	Overlay->Resume();
	Overlay->Empty();
	Load({{2.0}});
	CollectGarbage();
	RunFrames(2, 1.f);
	// Added again, it stays without lanes and does no harm.
	Stage->GetBar().GetParent()->AddChild(Overlay);
	GoTo(2.0);
	EXPECT_EQ(CountNew(), 0u);
}

} // namespace

} // namespace Flitmark
