#include "OverlayTestKit.h"

#include "Components/Button.h"
#include "Components/EditableText.h"
#include "UI_DanmakuBar.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>

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

/** What settings make of a picture at second 10, paused. */
struct FSettingsCase
{
	const char* Name;
	void (*Change)(FOverlaySettings&);
	/** Comments that then show, and above which canvas unit all of them begin. */
	std::set<std::u16string> Texts;
	double Below;
};

TEST_F(FOverlayTest, ChangedSettingsShowAtOnceAlsoWhilePaused)
{
	const std::set<std::u16string> All = {u"scrolls", u"top", u"bottom"};
	const FSettingsCase Cases[] = {
		{"usual", [](FOverlaySettings&) {}, All, 1080.0},
		{"all of the picture", [](FOverlaySettings& In) { In.Area = 1.0; }, All, 1080.0},
		{"no scrolling ones", [](FOverlaySettings& In) { In.bShowsScrolling = false; }, {u"top", u"bottom"}, 1080.0},
		{"no top ones", [](FOverlaySettings& In) { In.bShowsTop = false; }, {u"scrolls", u"bottom"}, 1080.0},
		{"no bottom ones", [](FOverlaySettings& In) { In.bShowsBottom = false; }, {u"scrolls", u"top"}, 810.0},
		{"later", [](FOverlaySettings& In) { In.Offset = ETimespan::TicksPerSecond * 4; }, {}, 0.0},
		{"earlier", [](FOverlaySettings& In) { In.Offset = -ETimespan::TicksPerSecond * 12; }, {u"next"}, 1080.0},
	};
	Show();
	LoadComments(*Overlay, {{"scrolls", 0, 8.0}, {"top", 1, 8.0}, {"bottom", 2, 8.0}, {"next", 1, 20.5}});
	Overlay->SetMediaTime(10.0);
	Overlay->Jump();
	Overlay->SetPaused(true);
	Step();
	const FOverlaySettings Usual = Overlay->GetSettings();
	for (const FSettingsCase& Case : Cases)
	{
		FOverlaySettings Wanted = Usual;
		Case.Change(Wanted);
		Overlay->SetSettings(Wanted);
		Step();
		std::set<std::u16string> Texts;
		for (const FSceneComment& Comment : Overlay->GetScene().GetComments())
		{
			Texts.insert(std::u16string(Comment.Style->Style.Text));
			EXPECT_LT(Comment.Position.Y, Case.Below) << Case.Name;
		}
		EXPECT_TRUE(Texts == Case.Texts) << Case.Name;
	}
}

TEST_F(FOverlayTest, AChangedSizeOrAreaHoldsForWhatIsThere)
{
	Show();
	std::vector<FTestComment> Many(40, {"stands", 1, 9.0});
	LoadComments(*Overlay, Many);
	Overlay->SetMediaTime(10.0);
	Overlay->Jump();
	Overlay->SetPaused(true);
	Step();
	const auto FindLowest = [this]
	{
		double Lowest = 0.0;
		for (const FSceneComment& Comment : Overlay->GetScene().GetComments())
		{
			Lowest = std::max(Lowest, Comment.Position.Y);
		}
		return Lowest;
	};
	const std::size_t Before = Count();
	EXPECT_GT(FindLowest(), 500.0);
	FOverlaySettings Wanted = Overlay->GetSettings();
	Wanted.Area = 0.25;
	Overlay->SetSettings(Wanted);
	Step();
	EXPECT_LT(FindLowest(), 270.0);
	EXPECT_GT(Count(), 1u);
	EXPECT_LT(Count(), Before);
	const double Size = First().Style->Style.Size;
	Wanted.FontScale = 2.0;
	Overlay->SetSettings(Wanted);
	Step();
	EXPECT_EQ(First().Style->Style.Size, 2.0 * Size);
}

TEST_F(FOverlayTest, TheViewersOwnAreShownInAModeThatIsNot)
{
	Show();
	Overlay->SetUrl("file:///video.mp4");
	LoadComments(*Overlay, {{"another's", 0}});
	FOverlaySettings Wanted = Overlay->GetSettings();
	Wanted.bShowsScrolling = false;
	Overlay->SetSettings(Wanted);
	const UUI_DanmakuBar& Bar = Overlay->GetStage().GetBar();
	Cast<UEditableText>(Bar.GetWidgetFromName(TEXT("InputDanmakuText")))->TypeText(FText::FromString(TEXT("mine")));
	Cast<UButton>(Bar.GetWidgetFromName(TEXT("SendDanmakuButton")))->Click();
	Step();
	ASSERT_EQ(Count(), 1u);
	EXPECT_TRUE(First().bViewers);
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
