#include "OverlayTestKit.h"

#include "Components/Button.h"
#include "Components/EditableText.h"
#include "UI_DanmakuBar.h"

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

TEST_F(FOverlayTest, TheCanvasIsHigherUnderAPictureTooSmallToRead)
{
	struct FCase
	{
		QSizeF Picture;
		double Scale;
		FVector2D Canvas;
	};
	const FCase Cases[] = {
		{{1920.0, 1080.0}, 1.0, {1920.0, 1080.0}},
		{{1280.0, 720.0}, 2.0 / 3.0, {1920.0, 1080.0}},
		{{3840.0, 1600.0}, 1.48148, {2592.0, 1080.0}},
		{{960.0, 540.0}, 0.5, {1920.0, 1080.0}},
		{{400.0, 300.0}, 0.5, {800.0, 600.0}},
		{{1.0, 1.0}, 0.5, {2.0, 2.0}},
		{{0.0, 720.0}, 0.5, {2.0, 2.0}},
	};
	for (const double Ratio : {1.0, 2.0})
	{
		for (const FCase& Case : Cases)
		{
			Overlay->SetView(Case.Picture, Ratio);
			const FOverlayView& View = Overlay->GetView();
			EXPECT_NEAR(View.Scale.X, Case.Scale * Ratio, 1e-4);
			EXPECT_NEAR(View.Scale.Y, Case.Scale * Ratio, 1e-4);
			EXPECT_NEAR(View.CanvasSize.X, Case.Canvas.X, 1e-6);
			EXPECT_NEAR(View.CanvasSize.Y, Case.Canvas.Y, 1e-6);
		}
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
		EXPECT_EQ(Comment.bViewers, Comment.Style->Style.Text == u"mine");
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
}

TEST_F(FOverlayTest, FollowsAMediaThatLeaps)
{
	Show();
	LoadComments(*Overlay, {{"stands", 1, 20.0}});
	struct FCase
	{
		double MediaTime;
		bool bPaused;
		std::size_t Shown;
	};
	// After minimizing the window; back past a second; and during an unfinished seek.
	const FCase Cases[] = {{21.5, false, 1}, {4.0, false, 0}, {21.5, true, 0}, {21.5, false, 0}};
	for (const FCase& Case : Cases)
	{
		Overlay->SetPaused(Case.bPaused);
		Overlay->SetMediaTime(Case.MediaTime);
		Step();
		EXPECT_EQ(Count(), Case.Shown);
	}
	Overlay->Jump();
	ASSERT_EQ(Count(), 1u);
	EXPECT_NEAR(First().Age, 1.5, 0.01);
	EXPECT_TRUE(Overlay->TakeChange());
	Step();
	EXPECT_FALSE(Overlay->TakeChange()) << "it only stands there";
	EXPECT_FALSE(Overlay->IsMoving());
}

TEST_F(FOverlayTest, SurvivesTimesThatAreNone)
{
	Show();
	LoadComments(*Overlay, {{"first"}});
	for (const double Seconds : {1e300, -1e300, std::nan("")})
	{
		Overlay->SetMediaTime(Seconds);
		Overlay->Jump();
		Step();
		EXPECT_EQ(Count(), Seconds > 0.0 ? 0u : 1u);
	}
}

} // namespace
} // namespace Flitmark
