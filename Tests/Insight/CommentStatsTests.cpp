#include "Insight/CommentDensity.h"
#include "Insight/CommentStats.h"
#include "Formats/CommentTraits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

namespace Flitmark::Testing
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

FServiceComment Say(const std::string& InText, double InSeconds)
{
	FServiceComment Comment;
	Comment.Text = InText;
	Comment.SpawnTicks = static_cast<int64>(InSeconds * static_cast<double>(TicksPerSecond));
	return Comment;
}

TEST(Density, CountsByBin)
{
	const struct
	{
		std::vector<int64> Ticks;
		int64 Duration;
		std::size_t NumBins;
		std::vector<float> Expected;
	} Cases[] = {
		{{0, 24, 25, 99, 100, 101, -1}, 100, 4, {2, 1, 0, 2}},
		{{5}, 10, 1, {1}},
		{{}, 10, 2, {0, 0}},
		{{0}, 0, 3, {}},
		{{0}, -5, 3, {}},
		{{0}, 10, 0, {}},
		// Ticks beyond what a double can count one by one.
		{{INT64_MAX, INT64_MAX / 2}, INT64_MAX, 2, {0, 2}},
	};
	for (const auto& Case : Cases)
	{
		EXPECT_EQ(ComputeDensity(Case.Ticks, Case.Duration, Case.NumBins, 0.0), Case.Expected);
	}
}

TEST(Density, SmoothingKeepsLevelsAndSpreadsPeaks)
{
	std::vector<int64> Ticks;
	for (int64 Tick = 0; Tick < 100; ++Tick)
	{
		Ticks.push_back(Tick);
	}
	for (const float Value : ComputeDensity(Ticks, 100, 50, 4.0))
	{
		EXPECT_NEAR(Value, 2.f, 0.01f);
	}
	const std::vector<int64> Peak(10, 50);
	const std::vector<float> Curve = ComputeDensity(Peak, 100, 101, 3.0);
	EXPECT_NEAR(std::accumulate(Curve.begin(), Curve.end(), 0.f), 10.f, 0.01f);
	EXPECT_NEAR(Curve[47], Curve[53], 1e-5f);
	EXPECT_LT(Curve[49], Curve[50]);
	EXPECT_EQ(Curve[20], 0.f);
	// Wider than the curve itself.
	EXPECT_NEAR(ComputeDensity(Peak, 100, 3, 1e9)[0], 10.f / 3.f, 1e-4f);
}

TEST(Density, PeaksAreApartAndNeverSlopes)
{
	const std::vector<float> Curve = {0, 1, 2, 9, 8, 7, 3, 2, 5, 2, 0, 0, 4};
	EXPECT_THAT(FindPeaks(Curve, 5, 3), ElementsAre(3u, 8u, 12u));
	EXPECT_THAT(FindPeaks(Curve, 2, 3), ElementsAre(3u, 8u));
	EXPECT_THAT(FindPeaks(Curve, 5, 6), ElementsAre(3u, 12u));
	EXPECT_THAT(FindPeaks(std::vector<float>{2, 2, 2}, 5, 2), ElementsAre(0u, 2u));
	EXPECT_THAT(FindPeaks(std::vector<float>{0, 0}, 5, 2), IsEmpty());
	EXPECT_THAT(FindPeaks({}, 5, 2), IsEmpty());
}

std::vector<std::string> TellTerms(const std::vector<std::string>& InTexts, std::size_t InMost = 5)
{
	std::vector<FServiceComment> Comments;
	for (const std::string& Text : InTexts)
	{
		Comments.push_back(Say(Text, 0));
	}
	std::vector<const FServiceComment*> Pointers;
	for (const FServiceComment& Comment : Comments)
	{
		Pointers.push_back(&Comment);
	}
	std::vector<std::string> Told;
	for (const FCommentTerm& Term : FindTerms(Pointers, InMost))
	{
		Told.push_back(Term.Text + "=" + std::to_string(Term.Count));
	}
	return Told;
}

TEST(Terms, AreWhatSeveralCommentsSay)
{
	EXPECT_THAT(TellTerms({"only once"}), IsEmpty());
	EXPECT_THAT(TellTerms({"Goal!", "goal goal", "what a GOAL", "so it is", "it is"}), ElementsAre("Goal!=3"));
	// Runs of any length are the same shout.
	EXPECT_THAT(TellTerms({"88888", "8888888888", "888"}), ElementsAre("888=3"));
	EXPECT_THAT(TellTerms({"ハハハハ", "ハハハ"}), ElementsAre("ハハハ=2"));
	// The whole text rather than its words.
	EXPECT_THAT(TellTerms({"see you", "see you", " see\nyou "}), ElementsAre("see you=3"));
	EXPECT_THAT(TellTerms({"here it comes", "Here it comes!", "here we go", "not here"}),
				ElementsAre("here it comes=2"));
	EXPECT_THAT(TellTerms({"?!", "?!", "█ █", "█ █"}), ElementsAre("?!=2"));
	// Languages without spaces.
	EXPECT_THAT(TellTerms({"我喜欢音乐", "音乐很好听"}), ElementsAre("音乐=2"));
	EXPECT_THAT(TellTerms({"b b", "b b", "aaa", "aaa", "aaa", "ccc", "ccc"}, 2), ElementsAre("aaa=3", "b b=2"));
}

TEST(Stats, TellWhatThereIs)
{
	std::vector<FServiceComment> Comments = {Say("gg", 1),	  Say("gg ", 2),	  Say("wow", 61),
											 Say("wow", 119), Say("one", 70.5),	  Say("long\ntext", 3600),
											 Say("gone", -1), Say("late", 86'400)};
	Comments[0].UserId = 5;
	Comments[1].UserId = 5;
	Comments[2].UserId = 6;
	Comments[3].Kind = ECommentKind::Top;
	Comments[4].FontSize = 36;
	Comments[5].Color = 0xFF0000FF;
	const FCommentStats Stats = GatherStats(Comments, 2);
	EXPECT_EQ(Stats.NumComments, 8);
	EXPECT_EQ(Stats.NumNeverReached, 2);
	EXPECT_EQ(Stats.FirstTicks, TicksPerSecond);
	EXPECT_EQ(Stats.LastTicks, 3600 * TicksPerSecond);
	EXPECT_EQ(Stats.NumOfKind[0], 7);
	EXPECT_EQ(Stats.NumOfKind[1], 1);
	ASSERT_EQ(Stats.Sizes.size(), 2u);
	EXPECT_EQ(Stats.Sizes[0].Value, 24);
	EXPECT_EQ(Stats.Sizes[0].Count, 7);
	ASSERT_EQ(Stats.Colors.size(), 2u);
	EXPECT_EQ(Stats.Colors[1].Value, 0xFF0000FFu);
	ASSERT_EQ(Stats.BusyMinutes.size(), 2u);
	EXPECT_EQ(Stats.BusyMinutes[0].Minute, 1);
	EXPECT_EQ(Stats.BusyMinutes[0].NumComments, 3);
	ASSERT_EQ(Stats.BusyMinutes[0].Terms.size(), 1u);
	EXPECT_EQ(Stats.BusyMinutes[0].Terms[0].Text, "wow");
	EXPECT_EQ(Stats.BusyMinutes[1].Minute, 0);
	ASSERT_EQ(Stats.Repeated.size(), 2u);
	EXPECT_EQ(Stats.Repeated[0].Text, "gg");
	EXPECT_EQ(Stats.Repeated[0].Count, 2);
	EXPECT_EQ(Stats.NumTexts, 6);
	ASSERT_EQ(Stats.Longest.size(), 2u);
	EXPECT_EQ(Stats.Longest[0].Text, "long text");
	EXPECT_EQ(Stats.Longest[0].NumCharacters, 9);
	EXPECT_EQ(Stats.NumUsers, 2);
	EXPECT_EQ(Stats.NumWithoutUser, 5);
	EXPECT_EQ(GatherSpawnTicks(Comments).size(), 6u);
}

TEST(Stats, OfNothingAreNothing)
{
	const FCommentStats Stats = GatherStats({}, 5);
	EXPECT_EQ(Stats.NumComments, 0);
	EXPECT_EQ(Stats.LastTicks, 0);
	EXPECT_THAT(Stats.BusyMinutes, IsEmpty());
	EXPECT_THAT(Stats.Longest, IsEmpty());
}

} // namespace
} // namespace Flitmark::Testing
