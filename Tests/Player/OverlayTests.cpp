#include "OverlayTestKit.h"

#include "Components/Button.h"
#include "Components/EditableText.h"
#include "UI_DanmakuBar.h"
#include "UI_DanmakuNodeSetting.h"

#include <gtest/gtest.h>

#include <cmath>

namespace Flitmark
{
namespace
{

constexpr double FrameTime = 1.0 / 60.0;

class FOverlayTest : public testing::Test
{
protected:
	FOverlayTest()
	{
		std::string Error;
		Overlay = FOverlay::Create(Error);
	}

	/** A picture of 1280 x 720, laid out. */
	void Show() { Overlay->SetView(QSizeF(1280.0, 720.0), 1.0); }
	void Step(double InSeconds = FrameTime) { Overlay->RunFrame(InSeconds); }
	std::size_t Count() const { return Overlay->GetScene().GetComments().size(); }
	const FSceneComment& First() const { return Overlay->GetScene().GetComments().front(); }

	std::unique_ptr<FOverlay> Overlay;
};

TEST(OverlayView, IsAsHighAsOnAnyScreenUntilItCouldNotBeRead)
{
	struct FCase
	{
		QSizeF Picture;
		double Scale;
		FVector2D Canvas;
	};
	const FCase Cases[] = {
		{{1920.0, 1080.0}, 1.0, {1920.0, 1080.0}},	   {{1280.0, 720.0}, 2.0 / 3.0, {1920.0, 1080.0}},
		{{3840.0, 1600.0}, 1.48148, {2592.0, 1080.0}}, {{960.0, 540.0}, 0.5, {1920.0, 1080.0}},
		{{400.0, 300.0}, 0.5, {800.0, 600.0}},		   {{1.0, 1.0}, 0.5, {2.0, 2.0}},
	};
	for (const FCase& Case : Cases)
	{
		const FOverlayView View = FOverlayView::Cover(Case.Picture, 2.0);
		EXPECT_NEAR(View.Scale, Case.Scale, 1e-4);
		EXPECT_NEAR(View.CanvasSize.X, Case.Canvas.X, 1e-6);
		EXPECT_NEAR(View.CanvasSize.Y, Case.Canvas.Y, 1e-6);
	}
}

TEST_F(FOverlayTest, TakesADocumentBeforeThereIsACanvas)
{
	LoadComments(*Overlay, {{"too early"}});
	LoadComments(*Overlay, {{"first"}});
	Overlay->SetPaused(true);
	Step();
	Overlay->SetView(QSizeF(0.0, 720.0), 1.0);
	EXPECT_EQ(Count(), 0u);
	Show();
	Step();
	EXPECT_EQ(Count(), 0u) << "a paused overlay starts nothing";
	Overlay->SetPaused(false);
	Step();
	ASSERT_EQ(Count(), 1u);
	EXPECT_EQ(First().Look->Look.Text, u"first");
}

TEST_F(FOverlayTest, TakesADocumentInTheMiddleOfItsSecond)
{
	Show();
	Overlay->SetMediaTime(7.25);
	LoadComments(*Overlay, {{"old", 1, 7.0}});
	Step();
	EXPECT_EQ(Count(), 1u);
	LoadComments(*Overlay, {{"new", 1, 7.5}, {"later", 1, 8.0}});
	EXPECT_EQ(Count(), 0u);
	Step();
	ASSERT_EQ(Count(), 1u);
	EXPECT_EQ(First().Look->Look.Text, u"new");
	Overlay->Clear();
	EXPECT_EQ(Count(), 0u);
	Overlay->SetMediaTime(8.0);
	Step();
	EXPECT_EQ(Count(), 0u);
}

TEST_F(FOverlayTest, AJumpWithinASecondBringsItAgain)
{
	Show();
	LoadComments(*Overlay, {{"now", 1, 3.0}, {"before all", 1, -1.0}});
	for (const bool bPaused : {false, true})
	{
		Overlay->SetPaused(false);
		Overlay->SetMediaTime(3.9);
		Step();
		EXPECT_EQ(Count(), 1u);
		Overlay->SetPaused(bPaused);
		Overlay->SetMediaTime(3.1);
		Overlay->Jump();
		EXPECT_EQ(Count(), 0u);
		Step();
		EXPECT_EQ(Count(), bPaused ? 0u : 1u);
	}
	Overlay->SetPaused(false);
	Step();
	EXPECT_EQ(Count(), 1u);
}

TEST_F(FOverlayTest, CommentsRunOnTheVideosTimeAndPause)
{
	Show();
	LoadComments(*Overlay, {{"scrolls", 0}});
	Step(0.0);
	ASSERT_EQ(Count(), 1u);
	EXPECT_EQ(First().Position.X, 1920.0);
	EXPECT_FALSE(First().bInView);
	Step();
	const double Each = 1920.0 - First().Position.X;
	EXPECT_GT(Each, 1.0);
	EXPECT_TRUE(First().bInView);
	EXPECT_TRUE(First().bMovesX);
	EXPECT_FALSE(First().bMovesY);
	EXPECT_TRUE(Overlay->IsMoving());

	Overlay->SetRate(2.0);
	Overlay->SetSpeedScale(1.5);
	double Before = First().Position.X;
	Step();
	EXPECT_NEAR(Before - First().Position.X, 3.0 * Each, 1e-3);

	Overlay->SetPaused(true);
	Before = First().Position.X;
	Step();
	EXPECT_EQ(First().Position.X, Before);
	EXPECT_TRUE(First().bMovesX) << "it would jump to the next pixel";
	EXPECT_FALSE(Overlay->IsMoving());
}

TEST_F(FOverlayTest, TimersRunOnTheViewersTime)
{
	Show();
	UUI_DanmakuNodeSetting& Panel = Overlay->GetStage().GetPanel();
	for (const double Rate : {0.25, 4.0})
	{
		Overlay->SetRate(Rate);
		Panel.SetVisible();
		Panel.SetHidden();
		Step(0.7);
		EXPECT_EQ(Panel.GetVisibility(), ESlateVisibility::Visible);
		Step(0.1);
		EXPECT_EQ(Panel.GetVisibility(), ESlateVisibility::Hidden);
	}
}

TEST_F(FOverlayTest, KnowsTheViewersOwnComments)
{
	Show();
	Overlay->SetUrl("file:///video.mp4");
	LoadComments(*Overlay, {{"another's"}});
	Step();
	const UUI_DanmakuBar& Bar = Overlay->GetStage().GetBar();
	Cast<UEditableText>(Bar.GetWidgetFromName(TEXT("InputDanmakuText")))->TypeText(FText::FromString(TEXT("mine")));
	Cast<UButton>(Bar.GetWidgetFromName(TEXT("SendDanmakuButton")))->Click();
	Step();
	ASSERT_EQ(Count(), 2u);
	for (const FSceneComment& Comment : Overlay->GetScene().GetComments())
	{
		EXPECT_EQ(Comment.bViewers, Comment.Look->Look.Text == u"mine");
	}
}

TEST_F(FOverlayTest, TheCanvasFollowsThePicture)
{
	Show();
	LoadComments(*Overlay, {{"stands", 1}});
	Step();
	ASSERT_EQ(Count(), 1u);
	const FVector2D Before = First().Position;
	Overlay->SetView(QSizeF(1920.0, 1080.0), 2.0);
	Step();
	EXPECT_EQ(First().Position, Before) << "the same picture, only larger";
	EXPECT_FALSE(First().bMovesX);
	Overlay->SetMediaTime(std::nan(""));
	Overlay->SetMediaTime(1e300);
	Step();
}

TEST(CommentScene, SharesLooksAndForgetsThem)
{
	std::string Error;
	const std::unique_ptr<FOverlay> Overlay = FOverlay::Create(Error);
	Overlay->SetView(QSizeF(1280.0, 720.0), 1.0);
	LoadComments(*Overlay, {{"same"}, {"same"}, {"same", 1, 0.0, "#FF0000"}, {""}, {"clear", 1, 0.0, "#FFFFFF00"}});
	Overlay->RunFrame(FrameTime);
	const std::vector<FSceneComment>& Comments = Overlay->GetScene().GetComments();
	ASSERT_EQ(Comments.size(), 3u);
	EXPECT_EQ(Comments[0].Look, Comments[1].Look);
	EXPECT_NE(Comments[0].Look, Comments[2].Look);
	const std::weak_ptr<const FSharedLook> Look = Comments[0].Look;
	Overlay->Clear();
	EXPECT_TRUE(Look.expired());
}

} // namespace
} // namespace Flitmark
