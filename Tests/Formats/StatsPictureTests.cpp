#include "Insight/DensityPicture.h"
#include "DensityPictureLabels.h"
#include "DensityPictureScale.h"
#include "DensityPictureText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string_view>

namespace Flitmark::Testing
{
namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int64 Second = 10'000'000;

TEST(PictureScale, TakesUsualSteps)
{
	const struct
	{
		double Seconds;
		std::size_t Most;
		int64 Step;
	} Times[] = {{0.5, 12, 1},	  {12, 12, 1},		  {13, 12, 2},	   {410, 12, 60},
				 {7800, 12, 900}, {86'400, 12, 7200}, {1e9, 3, 86'400}};
	for (const auto& Case : Times)
	{
		EXPECT_EQ(ChooseTimeStep(Case.Seconds, Case.Most), Case.Step) << Case.Seconds;
	}
	const std::pair<double, double> Counts[] = {{1, 1}, {4, 1},	  {5, 2},	  {8, 2},
												{9, 5}, {21, 10}, {267, 100}, {1e6, 500'000}};
	for (const auto& [Top, Step] : Counts)
	{
		EXPECT_EQ(ChooseCountStep(Top, 4), Step) << Top;
	}
	for (const int64 Duration : {int64(0), Second, 301 * Second, 86'400 * Second})
	{
		const FDensityBins Bins = FDensityBins::Choose(Duration);
		EXPECT_GE(Bins.GetTicks(), Duration);
		EXPECT_LT(Bins.GetTicks() - Bins.Seconds * Second, std::max(Duration, Second));
		EXPECT_LE(Bins.Num, 300u);
	}
}

TEST(PictureText, IsEscapedAndCut)
{
	EXPECT_EQ(EscapeXml("a<b>&\"c\" 弾"), "a&lt;b&gt;&amp;&quot;c&quot; 弾");
	// What no XML text may hold.
	EXPECT_EQ(EscapeXml(std::string("\0\x01\x1B\x7F\xEF\xBF\xBFx", 8)), "x");
	EXPECT_EQ(EscapeXml("\xFF"), "\uFFFD");
	EXPECT_EQ(CutToWidth("short", 10.0), "short");
	EXPECT_EQ(CutToWidth("弾幕弾幕弾幕", 4.0), "弾幕弾…");
	EXPECT_EQ(CutToWidth("", 0.0), "");
	EXPECT_GT(GuessWidth("弾幕"), GuessWidth("ab"));
	EXPECT_EQ(GuessWidth("e\u0301"), GuessWidth("e"));
}

/** The places as "left/row", "-" for none. */
std::vector<std::string> Place(const std::vector<FLabelWish>& InWishes)
{
	std::vector<std::string> Told;
	for (const auto& Label : PlaceLabels(InWishes, 0.0, 1000.0, 2))
	{
		Told.push_back(Label ? std::to_string(static_cast<int>(Label->Left)) + "/" + std::to_string(Label->Row) : "-");
	}
	return Told;
}

TEST(PictureLabels, DoNotTouch)
{
	EXPECT_THAT(Place({{500, 100}, {700, 100}}), ElementsAre("450/0", "650/0"));
	// Kept inside.
	EXPECT_THAT(Place({{10, 100}, {990, 100}}), ElementsAre("0/0", "900/0"));
	// To the side of its own line, then below.
	EXPECT_THAT(Place({{500, 100}, {580, 100}}), ElementsAre("450/0", "575/0"));
	EXPECT_THAT(Place({{500, 100}, {520, 100}}), ElementsAre("450/0", "515/1"));
	EXPECT_THAT(Place({{500, 900}, {510, 900}, {505, 900}}), ElementsAre("50/0", "-", "-"));
	EXPECT_THAT(Place({{500, 1001}}), ElementsAre("-"));
	EXPECT_THAT(Place({}), IsEmpty());
}

FServiceComment Say(const std::string& InText, int64 InSecond)
{
	FServiceComment Comment;
	Comment.Text = InText;
	Comment.SpawnTicks = InSecond * Second;
	return Comment;
}

TEST(Picture, PointsOutWhatIsBusy)
{
	std::vector<FServiceComment> Comments;
	for (int64 Index = 0; Index < 600; ++Index)
	{
		Comments.push_back(Say("x" + std::to_string(Index), Index));
	}
	const auto Shout = [&Comments](const std::string& InText, int64 InSecond, int InCount)
	{
		Comments.insert(Comments.end(), static_cast<std::size_t>(InCount), Say(InText, InSecond));
	};
	Shout("Goal!", 100, 60);
	Shout("bye", 550, 30);
	// Hardly more than elsewhere.
	Shout("hm", 300, 3);
	const std::vector<FDensityMark> Marks = FindBusyMoments(Comments, 600 * Second, 5);
	ASSERT_EQ(Marks.size(), 2u);
	EXPECT_NEAR(static_cast<double>(Marks[0].Ticks / Second), 100.0, 2.0);
	EXPECT_EQ(Marks[0].Label, "Goal!");
	EXPECT_NEAR(static_cast<double>(Marks[1].Ticks / Second), 550.0, 2.0);
	EXPECT_EQ(Marks[1].Label, "bye");
	EXPECT_EQ(FindBusyMoments(Comments, 600 * Second, 1).size(), 1u);
	EXPECT_THAT(FindBusyMoments({}, 600 * Second, 5), IsEmpty());
	EXPECT_THAT(FindBusyMoments({}, 0, 5), IsEmpty());
}

TEST(Picture, StaysInsideItsFrame)
{
	for (const int64 Duration : {int64(0), Second, 59 * Second, 3'601 * Second, 86'400 * Second})
	{
		FDensityPicture Picture;
		Picture.Title = std::string(500, 'W');
		Picture.DurationTicks = Duration;
		Picture.SpawnTicks = {0, Duration / 3, Duration / 3, Duration};
		Picture.Marks = {{0, "start"}, {Duration, std::string(300, 'w')}};
		const std::string Svg = DrawDensityPicture(Picture);
		EXPECT_THAT(Svg, testing::StartsWith("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 1200 400\""));
		EXPECT_THAT(Svg, testing::Not(HasSubstr("nan")));
		EXPECT_THAT(Svg, testing::Not(HasSubstr("inf")));
		for (const char* Name : {" x=\"", " y=\"", " cx=\"", " cy=\"", " x1=\"", " x2=\"", " y1=\"", " y2=\""})
		{
			const bool bVertical = std::string_view(Name).find('y') != std::string_view::npos;
			for (std::size_t Found = Svg.find(Name); Found != std::string::npos; Found = Svg.find(Name, Found + 1))
			{
				const double Value = std::stod(Svg.substr(Found + std::string_view(Name).size(), 12));
				EXPECT_GE(Value, 0.0) << Name;
				EXPECT_LE(Value, bVertical ? 400.0 : 1200.0) << Name;
			}
		}
	}
}

} // namespace
} // namespace Flitmark::Testing
