#include "Insight/DensityPicture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string_view>

namespace Flitmark::Testing
{
namespace
{

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr int64 Second = 10'000'000;

FServiceComment Say(const std::string& InText, int64 InSecond)
{
	FServiceComment Comment;
	Comment.Text = InText;
	Comment.SpawnTicks = InSecond * Second;
	return Comment;
}

void Shout(std::vector<FServiceComment>& OutComments, const std::string& InText, int64 InSecond, std::size_t InCount)
{
	OutComments.insert(OutComments.end(), InCount, Say(InText, InSecond));
}

std::size_t CountOf(std::string_view InText, std::string_view InPart)
{
	std::size_t Count = 0;
	for (std::size_t Found = InText.find(InPart); Found != std::string::npos; Found = InText.find(InPart, Found + 1))
	{
		++Count;
	}
	return Count;
}

/** An attribute's values, in order. */
std::vector<double> FindNumbers(std::string_view InSvg, std::string_view InTag, std::string_view InAttribute)
{
	std::vector<double> Numbers;
	for (std::size_t Tag = InSvg.find(InTag); Tag != std::string::npos; Tag = InSvg.find(InTag, Tag + 1))
	{
		const std::size_t Value = InSvg.find(InAttribute, Tag) + InAttribute.size();
		Numbers.push_back(std::stod(std::string(InSvg.substr(Value, 12))));
	}
	return Numbers;
}

TEST(DensityPicture, MarksTheBusiestPlaces)
{
	std::vector<FServiceComment> Comments;
	for (int64 Index = 0; Index < 600; ++Index)
	{
		Comments.push_back(Say("x" + std::to_string(Index), Index));
	}
	Shout(Comments, "Goal!", 100, 60);
	Shout(Comments, "so near the other one", 130, 50);
	Shout(Comments, "<next> & finished", 550, 30);
	// Hardly more than elsewhere.
	Shout(Comments, "hm", 300, 2);
	const std::string Svg = DrawDensityPicture(Comments, "a<b>&c.xml", "742 comments");
	EXPECT_THAT(Svg, AllOf(HasSubstr(">1:40</text>\n<text class=\"said\""), HasSubstr(">Goal!</text>"),
						   HasSubstr(">&lt;next&gt; &amp; finish…</text>"), HasSubstr("&lt;b&gt;&amp;c.xml</text>")))
		<< Svg;
	EXPECT_EQ(CountOf(Svg, "class=\"said\""), 2u);
	EXPECT_THAT(Svg, AllOf(HasSubstr("comments per 5 seconds"), HasSubstr(">10:00</text>"), Not(HasSubstr("near"))));
}

TEST(DensityPicture, LabelsHaveRoomAndStayInside)
{
	for (const int64 Duration : {0, 1, 59, 613, 3'601, 86'399})
	{
		std::vector<FServiceComment> Comments = {Say("never", -1), Say("never", 86'400)};
		for (const int64 Part : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10})
		{
			Shout(Comments, std::string(30, 'W'), Duration * Part / 10, static_cast<std::size_t>(5 + Part * 7 % 11));
		}
		const std::string Svg = DrawDensityPicture(Comments, std::string(500, 'W') + "\xFF\x01", "");
		EXPECT_THAT(Svg,
					AllOf(testing::StartsWith("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 1200 400\""),
						  Not(HasSubstr("nan")), Not(HasSubstr("inf")), Not(HasSubstr("never"))));
		for (const char* Name : {" x=\"", " x1=\"", " x2=\"", " y=\"", " y1=\"", " y2=\""})
		{
			for (const double Value : FindNumbers(Svg, Name, Name))
			{
				EXPECT_GE(Value, 0.0) << Name;
				EXPECT_LE(Value, Name[1] == 'y' ? 400.0 : 1200.0) << Name;
			}
		}
		const std::vector<double> Labels = FindNumbers(Svg, "<text class=\"said\"", " x=\"");
		EXPECT_LE(Labels.size(), 3u);
		for (std::size_t Index = 0; Index < Labels.size(); ++Index)
		{
			constexpr double LabelWidth = 16 * 13;
			EXPECT_GE(Labels[Index], LabelWidth / 2);
			EXPECT_LE(Labels[Index], 1200.0 - LabelWidth / 2);
			for (std::size_t Other = 0; Other < Index; ++Other)
			{
				EXPECT_GE(std::abs(Labels[Index] - Labels[Other]), LabelWidth);
			}
		}
	}
	EXPECT_THAT(DrawDensityPicture({}, "empty.json", ""), HasSubstr("</svg>"));
}

TEST(DensityPicture, HasRoundTimesAndCounts)
{
	const struct
	{
		int64 LastSecond;
		std::size_t Most;
		std::vector<const char*> Told;
	} Cases[] = {
		{0, 1, {"comments per second", ">0:01<", ">1<"}},
		{12, 9, {">0:02<", ">5<", ">10<"}},
		{409, 4, {"comments per 5 seconds", ">1:00<", ">6:00<", ">4<"}},
		{7'799, 21, {"comments per minute", ">15:00<", ">2:00:00<", ">30<"}},
		{86'399, 267, {"comments per 10 minutes", ">2:00:00<", ">24:00:00<", ">300<"}},
	};
	for (const auto& Case : Cases)
	{
		std::vector<FServiceComment> Comments;
		Shout(Comments, "x", Case.LastSecond, Case.Most);
		const std::string Svg = DrawDensityPicture(Comments, "", "");
		for (const char* Told : Case.Told)
		{
			EXPECT_THAT(Svg, HasSubstr(Told)) << Case.LastSecond;
		}
		EXPECT_LE(CountOf(Svg, "class=\"at\""), 13u);
		EXPECT_LE(CountOf(Svg, "class=\"count\""), 6u);
	}
}

} // namespace
} // namespace Flitmark::Testing
