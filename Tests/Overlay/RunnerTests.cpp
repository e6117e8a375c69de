#include "RunnerFixture.h"

#include "UI_DanmakuNodeSetting.h"

#include <array>

namespace Flitmark
{
namespace
{

TEST(OverlayView, CoversThePictureInCanvasUnits)
{
	struct FCase
	{
		FVector2D Pixels;
		double PixelAspect;
		double Height;
		FVector2f Canvas;
		FTextScale Scale;
	};
	const FCase Cases[] = {
		{{1920.0, 1080.0}, 1.0, 1080.0, {1920.f, 1080.f}, {1.0, 1.0}},
		{{3840.0, 1600.0}, 1.0, 1080.0, {2592.f, 1080.f}, {40.0 / 27.0, 40.0 / 27.0}},
		{{720.0, 576.0}, 16.0 / 15.0, 1080.0, {1440.f, 1080.f}, {0.5, 8.0 / 15.0}},
		{{640.0, 360.0}, 1.0, 180.0, {320.f, 180.f}, {2.0, 2.0}},
	};
	for (const FCase& Case : Cases)
	{
		const FOverlayView View = FOverlayView::Cover(Case.Pixels, Case.PixelAspect, Case.Height);
		EXPECT_EQ(View.CanvasSize.X, Case.Canvas.X);
		EXPECT_EQ(View.CanvasSize.Y, Case.Canvas.Y);
		EXPECT_NEAR(View.Scale.X, Case.Scale.X, 1e-12);
		EXPECT_NEAR(View.Scale.Y, Case.Scale.Y, 1e-12);
	}
}

using FOverlayRunnerTest = FRunnerFixture;

TEST_F(FOverlayRunnerTest, TakesADocumentBeforeThereIsACanvas)
{
	Load({{"too early"}});
	Load({{"first"}});
	Runner->SetPaused(true);
	Step();
	EXPECT_EQ(Count(), 0u);
	Show();
	Step();
	EXPECT_EQ(Count(), 0u) << "a paused overlay starts nothing";
	Runner->SetPaused(false);
	Step();
	ASSERT_EQ(Count(), 1u);
	EXPECT_EQ(First().Style->Style.Text, u"first");
}

TEST_F(FOverlayRunnerTest, TakesADocumentInTheMiddleOfItsSecond)
{
	Show();
	SetSeconds(7.25);
	Load({{"old", 1, 7.0}});
	Step();
	EXPECT_EQ(Count(), 1u);
	Load({{"new", 1, 7.5}, {"later", 1, 8.0}});
	ASSERT_EQ(Count(), 1u);
	Step();
	ASSERT_EQ(Count(), 1u);
	EXPECT_EQ(First().Style->Style.Text, u"new");
	Runner->Load(FString(), {});
	EXPECT_EQ(Count(), 0u);
	SetSeconds(8.0);
	Step();
	EXPECT_EQ(Count(), 0u);
}

TEST_F(FOverlayRunnerTest, AJumpWithinASecondBringsItAgain)
{
	Show();
	Load({{"now", 1, 3.0}, {"before all", 1, -1.0}});
	for (const bool bPaused : {false, true})
	{
		Runner->SetPaused(false);
		SetSeconds(3.9);
		Step();
		EXPECT_EQ(Count(), 1u);
		Runner->SetPaused(bPaused);
		SetSeconds(3.1);
		Runner->Jump();
		ASSERT_EQ(Count(), 1u);
		EXPECT_NEAR(First().Age, 0.1, 1e-6);
		Step();
		EXPECT_EQ(Count(), 1u);
	}
	Runner->SetPaused(false);
	Step();
	EXPECT_EQ(Count(), 1u);
}

TEST_F(FOverlayRunnerTest, CommentsRunOnTheMediasTimeAndPause)
{
	Show();
	Load({{"scrolls", 0}});
	Step(0.0);
	ASSERT_EQ(Count(), 1u);
	EXPECT_EQ(First().Position.X, 1920.0);
	EXPECT_FALSE(First().bEntered);
	Step();
	const double Each = 1920.0 - First().Position.X;
	EXPECT_GT(Each, 1.0);
	EXPECT_TRUE(First().bEntered);
	EXPECT_TRUE(First().bMovesX);
	EXPECT_FALSE(First().bMovesY);
	EXPECT_TRUE(Runner->IsMoving());

	Runner->SetRate(2.0);
	Runner->GetSettings().Speed = 1.5;
	double Before = First().Position.X;
	Step();
	EXPECT_NEAR(Before - First().Position.X, 3.0 * Each, 1e-3);
	EXPECT_NEAR(First().Age, 4.0 * FrameTime, 1e-9);

	Runner->SetPaused(true);
	Before = First().Position.X;
	Step();
	EXPECT_EQ(First().Position.X, Before);
	EXPECT_NEAR(First().Age, 4.0 * FrameTime, 1e-9);
	EXPECT_TRUE(First().bMovesX) << "it would jump to the next pixel";
	EXPECT_FALSE(Runner->IsMoving());
}

TEST_F(FOverlayRunnerTest, TheAreaIsAPartOfThePictureAndBottomCommentsStayAtItsBottom)
{
	Show();
	const double Height = Measure->GetEngine().Measure(u"x", 24.f).Height;
	struct FCase
	{
		double Area;
		int32 ScrollLanes;
	};
	// Lanes are 15.12 units high.
	for (const FCase& Case : {FCase{0.75, 53}, FCase{1.0, 71}, FCase{0.5, 35}, FCase{0.25, 17}})
	{
		Runner->GetSettings().Area = Case.Area;
		Load({{"x", 2}, {"x", 1}, {"x", 0}});
		Step();
		ASSERT_EQ(Count(), 3u) << Case.Area;
		EXPECT_EQ(Runner->GetStage().GetTrackCounts().Scroll, Case.ScrollLanes) << Case.Area;
		const std::vector<FSceneComment>& Comments = Runner->GetScene().GetComments();
		EXPECT_NEAR(Comments[0].Position.Y, 1080.0 - Height, 1e-3) << Case.Area;
		EXPECT_EQ(Comments[1].Position.Y, 0.0);
		EXPECT_FALSE(Comments[0].bMovesY);
		Runner->GetSettings().Area = 0.3;
		Step();
		EXPECT_NEAR(Runner->GetScene().GetComments()[0].Position.Y, 1080.0 - Height, 1e-3)
			<< "a change moves what stands already";
	}
}

TEST_F(FOverlayRunnerTest, TheFontScaleCountsForLanesAndLook)
{
	Show();
	Runner->GetSettings().FontScale = 2.0;
	Load({{"x"}, {"x"}});
	Step();
	ASSERT_EQ(Count(), 2u);
	EXPECT_EQ(First().Style->Style.Size, 48.f);
	const std::vector<FSceneComment>& Comments = Runner->GetScene().GetComments();
	EXPECT_GT(Comments[1].Position.Y, Measure->GetEngine().Measure(u"x", 48.f).Height - 1e-3);
	Runner->GetSettings().FontScale = 1.0;
	Step();
	EXPECT_EQ(First().Style->Style.Size, 48.f) << "what has lanes keeps its size";
}

TEST_F(FOverlayRunnerTest, AnOffsetMovesCommentsInTime)
{
	constexpr int64 Second = ETimespan::TicksPerSecond;
	Show();
	struct FCase
	{
		int64 Offset;
		double Before;
		double At;
	};
	for (const FCase& Case : {FCase{0, 2.9, 3.0}, FCase{5 * Second, 7.9, 8.0}, FCase{-5 * Second / 2, 0.4, 0.5},
							  FCase{Second / 2, 3.4, 3.5}})
	{
		Runner->GetSettings().Offset = Case.Offset;
		SetSeconds(0.0);
		Load({{"never", 1, -1.5}, {"now", 1, 3.0}});
		for (const double Seconds : {0.0, Case.Before})
		{
			SetSeconds(Seconds);
			Step();
			EXPECT_EQ(Count(), 0u) << Case.Offset;
		}
		SetSeconds(Case.At);
		Step();
		ASSERT_EQ(Count(), 1u) << Case.Offset;
		EXPECT_EQ(First().Style->Style.Text, u"now");
	}
}

TEST(OverlaySettings, TimesBeforeTheFirstAndAtTheLastTickAreTimes)
{
	FOverlaySettings Settings;
	Settings.Offset = 5;
	EXPECT_EQ(Settings.GetStageTime(4), FOverlaySettings::BeforeAll);
	EXPECT_EQ(Settings.GetStageTime(5), 0);
	Settings.Offset = -5;
	EXPECT_EQ(Settings.GetStageTime(0), 5);
	EXPECT_EQ(Settings.GetStageTime(MAX_int64), MAX_int64);
}

TEST_F(FOverlayRunnerTest, CommentsBeforeTheMediaNeverCome)
{
	Show();
	Load({{"moved forward", 1, -1.5}, {"first", 1, 0.0}});
	const auto CountAll = [this]
	{
		return Runner->GetTally().GetCounts().CountAll();
	};
	Step();
	EXPECT_EQ(CountAll(), 1);
	Runner->Jump();
	Step();
	EXPECT_EQ(CountAll(), 2) << "a jump starts only the first anew";
	Runner->GetSettings().Offset = 2 * ETimespan::TicksPerSecond;
	SetSeconds(0.5);
	Step();
	EXPECT_EQ(CountAll(), 2) << "nothing is due before the offset has passed";
}

TEST_F(FOverlayRunnerTest, CommentsGoWhenTheirTimeIsOver)
{
	Show();
	for (const int32 Mode : {0, 1, 2})
	{
		Load({{"a comment", Mode}});
		Step();
		ASSERT_EQ(Count(), 1u);
		EXPECT_NEAR(First().Age, FrameTime, 1e-9);
		const double Total = First().Age + First().TimeLeft;
		EXPECT_NEAR(Total, std::round(Total), 1e-3) << "a display time is a whole number of seconds";
		while (First().TimeLeft > 1.5 * FrameTime)
		{
			Step();
			ASSERT_EQ(Count(), 1u) << First().TimeLeft;
		}
		Step();
		Step();
		EXPECT_EQ(Count(), 0u);
	}
}

TEST_F(FOverlayRunnerTest, TimersRunOnTheViewersTime)
{
	Show();
	UUI_DanmakuNodeSetting& Panel = Runner->GetStage().GetPanel();
	for (const double Rate : {0.25, 4.0})
	{
		Runner->SetRate(Rate);
		Panel.SetVisible();
		Panel.SetHidden();
		Step(0.7);
		EXPECT_EQ(Panel.GetVisibility(), ESlateVisibility::Visible);
		Step(0.1);
		EXPECT_EQ(Panel.GetVisibility(), ESlateVisibility::Hidden);
	}
}

} // namespace
} // namespace Flitmark
