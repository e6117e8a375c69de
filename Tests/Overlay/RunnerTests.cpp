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
