#include "RunnerFixture.h"

#include "Components/Button.h"
#include "Components/CheckBox.h"
#include "Components/EditableText.h"
#include "UI_DanmakuBar.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <random>

namespace Flitmark
{
namespace
{

/** What is on the screen: each comment's position, by its text. */
using FScreen = std::map<std::u16string, FVector2D>;

constexpr int32 NumSeconds = 90;

/** Comments with different texts, three in four of which scroll, as in most documents. */
std::vector<FTestComment> MakeComments(int32 InPerSecond)
{
	constexpr std::array<int32, 8> Modes{0, 0, 0, 0, 0, 0, 1, 2};
	std::minstd_rand Random(20240611);
	std::vector<FTestComment> Comments;
	for (int32 Index = 0; Index < NumSeconds * InPerSecond; ++Index)
	{
		const std::string Text = "comment " + std::to_string(Index) + std::string(Random() % 20, 'w');
		Comments.push_back({Text, Modes[Random() % Modes.size()], (Index + 0.5) / InPerSecond});
	}
	return Comments;
}

class FJumpTest : public FRunnerFixture
{
protected:
	FJumpTest() { Runner->SeedEachSecond(); }

	/** Seconds until a viewer looks. */
	static constexpr double GlanceTime = 0.1;

	FScreen Look() const
	{
		FScreen Screen;
		for (const FSceneComment& Comment : Runner->GetScene().GetComments())
		{
			Screen[Comment.Style->Style.Text] = Comment.Position;
		}
		return Screen;
	}

	std::size_t CountOf(const char16_t* InText) const
	{
		return static_cast<std::size_t>(std::ranges::count_if(Runner->GetScene().GetComments(),
															  [InText](const FSceneComment& InComment)
															  { return InComment.Style->Style.Text == InText; }));
	}

	/** Plays from one media time to another, in seconds. */
	void Play(double InFrom, double InTo)
	{
		const double Each = FrameTime * Rate;
		const auto Last = static_cast<int32>(std::ceil(InTo / Each));
		for (auto Frame = static_cast<int32>(std::ceil(InFrom / Each)); Frame < Last; ++Frame)
		{
			SetSeconds(Frame * Each);
			Step();
		}
	}

	void JumpTo(double InTime)
	{
		SetSeconds(InTime);
		Runner->Jump();
	}

	/** Runs frames until a jump under way, if any, has finished. */
	void Arrive()
	{
		do
		{
			Step();
		} while (Runner->IsJumping());
	}

	/** Writes a comment and sends it. */
	void Send(const TCHAR* InText)
	{
		Runner->GetStage().SetUrl(TEXT("film.mp4"));
		const UUI_DanmakuBar& Bar = Runner->GetStage().GetBar();
		Cast<UEditableText>(Bar.GetWidgetFromName(TEXT("InputDanmakuText")))->TypeText(FText::FromString(InText));
		Cast<UButton>(Bar.GetWidgetFromName(TEXT("SendDanmakuButton")))->Click();
	}

	void Switch(bool bInOn)
	{
		const UUI_DanmakuBar& Bar = Runner->GetStage().GetBar();
		Cast<UCheckBox>(Bar.GetWidgetFromName(TEXT("OpenDanmakuButton")))->Toggle(bInOn);
	}

	/** The video's playback rate. */
	double Rate = 1.0;
};

TEST_F(FJumpTest, ShowsWhatPlayingWouldShow)
{
	struct FCase
	{
		int32 PerSecond;
		double Rate;
		double Speed;
		/** Comments in any one picture, at least. */
		std::size_t NumShown;
		/** How many of them are the same and in the same place: few if there is competition for every lane. */
		double SameShare;
	};
	const FCase Cases[] = {{25, 1.0, 1.0, 60, 0.2}, {3, 1.0, 1.0, 20, 0.7}, {25, 2.0, 0.5, 60, 0.2}};
	for (const FCase& Case : Cases)
	{
		std::minstd_rand Random(7);
		std::vector<double> Times;
		for (int32 Place = 0; Place < 20; ++Place)
		{
			Times.push_back(15.0 + static_cast<double>(Random() % 74'000) / 1000.0);
		}
		std::ranges::sort(Times);
		Rate = Case.Rate;
		Runner->SetRate(Rate);
		Runner->GetSettings().Speed = Case.Speed;
		SetSeconds(0.0);
		Show();
		Load(MakeComments(Case.PerSecond));
		std::vector<FScreen> Played;
		for (std::size_t Place = 0; Place < Times.size(); ++Place)
		{
			Play(Place > 0 ? Times[Place - 1] + GlanceTime : 0.0, Times[Place] + GlanceTime);
			Played.push_back(Look());
		}

		double NumPlayed = 0.0;
		double NumSame = 0.0;
		for (std::size_t Place = Times.size(); Place-- > 0;)
		{
			JumpTo(Times[Place]);
			Play(Times[Place], Times[Place] + GlanceTime);
			const FScreen Jumped = Look();
			const double Ratio = static_cast<double>(Jumped.size()) / static_cast<double>(Played[Place].size());
			EXPECT_GE(Ratio, 0.95) << Times[Place];
			EXPECT_LE(Ratio, 1.15) << Times[Place];
			EXPECT_GE(Played[Place].size(), Case.NumShown) << Times[Place];
			for (const auto& [Text, Position] : Played[Place])
			{
				const auto Found = Jumped.find(Text);
				const bool bSame = Found != Jumped.end() && std::abs(Found->second.X - Position.X) < 15.0 &&
								   Found->second.Y == Position.Y;
				NumPlayed += 1.0;
				NumSame += bSame ? 1.0 : 0.0;
			}
		}
		EXPECT_GE(NumSame / NumPlayed, Case.SameShare);
	}
}

TEST_F(FJumpTest, TheSamePlaceIsTheSamePicture)
{
	Show();
	Load(MakeComments(25));
	JumpTo(40.3);
	const FScreen First = Look();
	Play(40.3, 44.0);
	EXPECT_NE(Look(), First);
	for (const bool bPaused : {false, true})
	{
		Runner->SetPaused(bPaused);
		JumpTo(70.0);
		EXPECT_NE(Look(), First);
		JumpTo(40.3);
		EXPECT_EQ(Look(), First);
	}
	Step();
	EXPECT_EQ(Look(), First) << "it is paused";
}

TEST_F(FJumpTest, WhatIsWrittenThereComesOnce)
{
	Show();
	Load({});
	for (const bool bPaused : {false, true})
	{
		Runner->SetPaused(bPaused);
		JumpTo(30.4);
		Send(TEXT("mine"));
		Step();
		ASSERT_EQ(CountOf(u"mine"), 1u);
		Runner->SetPaused(false);
		Play(30.4, 32.0);
		EXPECT_EQ(CountOf(u"mine"), 1u);
		// The schedule now has it, so it is there after every further jump.
		JumpTo(33.0);
		EXPECT_EQ(CountOf(u"mine"), 1u);
		Load({});
	}
}

TEST_F(FJumpTest, SwitchingOffAndOnBringsBackWhatFlew)
{
	Show();
	Load(MakeComments(25));
	JumpTo(40.0);
	Play(40.0, 41.5);
	const std::size_t Before = Count();
	ASSERT_GT(Before, 60u);
	for (const bool bPaused : {false, true})
	{
		for (const int32 NumFramesOff : {0, 1, 30})
		{
			Runner->SetPaused(bPaused);
			Switch(false);
			for (int32 Frame = 0; Frame < NumFramesOff; ++Frame)
			{
				Step();
				ASSERT_EQ(Count(), 0u);
				EXPECT_FALSE(Runner->IsMoving()) << "nothing to be seen";
			}
			Switch(true);
			Arrive();
			EXPECT_NEAR(static_cast<double>(Count()), static_cast<double>(Before), 0.05 * static_cast<double>(Before));
		}
	}
}

TEST_F(FJumpTest, AJumpWhileSwitchedOffIsMadeUpFor)
{
	Show();
	Load(MakeComments(25));
	Switch(false);
	Step();
	JumpTo(40.0);
	Step();
	EXPECT_EQ(Count(), 0u);
	Switch(true);
	Arrive();
	EXPECT_GT(Count(), 60u);
}

TEST_F(FJumpTest, ADenseDocumentTakesSlices)
{
	Show();
	Load(MakeComments(400));
	JumpTo(40.3);
	const FScreen Whole = Look();
	Runner->SetPaused(true);
	SetSeconds(80.0);
	Runner->JumpInSlices();
	ASSERT_TRUE(Runner->IsJumping()) << "the document is not dense";
	SetSeconds(40.3);
	Runner->JumpInSlices();
	int32 NumFrames = 0;
	for (; Runner->IsJumping(); ++NumFrames)
	{
		EXPECT_EQ(Count(), 0u);
		EXPECT_TRUE(Runner->IsMoving()) << "further frames are needed";
		Step();
	}
	EXPECT_GT(NumFrames, 1);
	EXPECT_EQ(Look(), Whole);
	EXPECT_FALSE(Runner->IsMoving());
}

TEST_F(FJumpTest, WhatIsWrittenBetweenSlicesComesOnce)
{
	Show();
	std::vector<FTestComment> Comments = MakeComments(400);
	// Their lanes are free for what the viewer writes.
	std::erase_if(Comments,
				  [](const FTestComment& InComment) { return InComment.Mode == 0 && InComment.Seconds > 30.0; });
	Load(Comments);
	SetSeconds(40.3);
	Runner->JumpInSlices();
	ASSERT_TRUE(Runner->IsJumping());
	Send(TEXT("mine"));
	Arrive();
	EXPECT_EQ(CountOf(u"mine"), 1u);
}

TEST_F(FJumpTest, LooksBackAsFarAsAWideCommentLasts)
{
	const std::string Text(400, 'w');
	Show();
	Runner->Load(MakeDocument({{Text, 0, 2.0}}), {{2, 24.f, std::u16string(Text.begin(), Text.end())}});
	JumpTo(40.0);
	ASSERT_EQ(Count(), 1u);
	EXPECT_NEAR(First().Age, 38.0, 0.01);
	EXPECT_TRUE(First().bMovesX) << "it would jump to whole pixels";
	EXPECT_TRUE(First().bEntered);
}

} // namespace
} // namespace Flitmark
