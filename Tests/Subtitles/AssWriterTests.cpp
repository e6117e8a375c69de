#include "Subtitles/AssWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Flitmark::Testing
{
namespace
{

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

/** The event lines of comments on a canvas of 1920 x 1080. */
std::vector<std::string> WriteEvents(const std::vector<FPlacedComment>& InComments, double InOpacity = 1.0)
{
	std::string Error;
	static const std::unique_ptr<FTextEngine> Engine = FTextEngine::Create({"Noto Sans"}, Error);
	std::string Text;
	WriteAss({InComments, FVector2f(1920.f, 1080.f)}, *Engine, InOpacity,
			 [&Text](std::string_view InPiece)
			 {
				 Text += InPiece;
				 return true;
			 });
	std::vector<std::string> Events;
	for (std::size_t Begin = Text.find("Dialogue"); Begin < Text.size();)
	{
		const std::size_t End = Text.find('\n', Begin);
		Events.push_back(Text.substr(Begin, End - Begin));
		Begin = End + 1;
	}
	return Events;
}

FPlacedComment MakeComment(std::u16string InText, FColor InColor = FColor(255, 255, 255, 255), float InSize = 24.f)
{
	FPlacedComment Comment;
	Comment.Style = std::make_shared<FSharedStyle>(FSharedStyle{1, {std::move(InText), InSize, InColor}});
	Comment.Begin = 20'000'000;
	Comment.End = 49'833'333;
	Comment.Position = FVector2D(100.0, 50.0);
	return Comment;
}

TEST(AssWriter, EndsNoEventInTheFrameAfterIt)
{
	FPlacedComment Comment = MakeComment(u"a");
	Comment.Velocity = FVector2D(-100.0, 0.0);
	EXPECT_THAT(WriteEvents({Comment}), ElementsAre(StartsWith("Dialogue: 0,0:00:02.00,0:00:04.98,Comment,,0,0,0,,")));
	// The move ends where the comment is at the rounded time.
	EXPECT_THAT(WriteEvents({Comment})[0], testing::ContainsRegex("move\\(102,[0-9.]+,-196,[0-9.]+\\)"));
	Comment.End = Comment.Begin + 1;
	EXPECT_THAT(WriteEvents({Comment})[0], HasSubstr(",0:00:02.00,0:00:02.01,"));
}

TEST(AssWriter, WritesEachLineWhereTheOverlayHasIt)
{
	const std::vector<std::string> Events = WriteEvents({MakeComment(u"one\n\n  three")});
	ASSERT_EQ(Events.size(), 2U);
	const auto GetY = [](const std::string& InEvent)
	{
		return std::stod(InEvent.substr(InEvent.find("\\pos(102,") + 9));
	};
	// Two lines of 1.25 em, which is 32 units.
	EXPECT_NEAR(GetY(Events[1]) - GetY(Events[0]), 80.0, 1e-3);
	EXPECT_THAT(Events[1], EndsWith("}\\h\\hthree"));
}

TEST(AssWriter, SaysOnlyWhatDiffersFromTheStyle)
{
	const struct
	{
		FPlacedComment Comment;
		double Opacity;
		std::string Expected;
	} Cases[] = {
		{MakeComment(u"plain"), 1.0, ")}plain"},
		{MakeComment(u"plain"), 0.5, ")}plain"},
		{MakeComment(u"red", FColor(0xFE, 3, 2, 255)), 1.0, ")\\c&H0203FE&}red"},
		{MakeComment(u"black", FColor(0, 0, 0, 255)), 1.0, ")\\c&H000000&\\3c&HFFFFFF&}black"},
		{MakeComment(u"faint", FColor(255, 255, 255, 51)), 0.5, ")\\1a&HE5&\\3a&HEB&}faint"},
		// The font's cell is 1.362 em high.
		{MakeComment(u"big", FColor(255, 255, 255, 255), 48.f), 1.0, ")\\fs87.168\\bord4}big"},
		{MakeComment(u"שלום"), 1.0, "\\fe-1}"},
	};
	for (const auto& Case : Cases)
	{
		EXPECT_THAT(WriteEvents({Case.Comment}, Case.Opacity), ElementsAre(HasSubstr(Case.Expected)));
	}
}

TEST(AssWriter, TakesOutlineAndWeightFromTheFonts)
{
	std::string Error;
	const std::unique_ptr<FTextEngine> Engine = FTextEngine::Create({"Noto Sans", true, 0.25}, Error);
	std::string Text;
	WriteAss({{MakeComment(u"a")}, FVector2f(1920.f, 1080.f)}, *Engine, 1.0,
			 [&Text](std::string_view InPiece)
			 {
				 Text += InPiece;
				 return true;
			 });
	EXPECT_THAT(Text, HasSubstr(",-1,0,0,0,100,100,0,0,1,0.5,0,7,"));
	EXPECT_THAT(Text, EndsWith(")}a\n"));
}

TEST(AssWriter, DrawsTheViewersOwnOverTheOthers)
{
	FPlacedComment Own = MakeComment(u"own");
	Own.bViewers = true;
	EXPECT_THAT(WriteEvents({Own, MakeComment(u"other")}),
				ElementsAre(StartsWith("Dialogue: 1,"), StartsWith("Dialogue: 0,")));
}

TEST(AssWriter, NamesTheFontOfEachPiece)
{
	// An emoji is drawn with whatever font the player has.
	EXPECT_THAT(WriteEvents({MakeComment(u"a字😀b")})[0],
				testing::ContainsRegex("\\}a\\{\\\\fnNoto Sans CJK [A-Z]+\\\\fs[0-9.]+\\}字\\{\\\\fnNoto "
									   "Sans\\\\fs43\\.584\\}😀b$"));
}

TEST(AssWriter, StopsWithItsOutput)
{
	std::string Error;
	const std::unique_ptr<FTextEngine> Engine = FTextEngine::Create({}, Error);
	const std::vector<FPlacedComment> Many(10'000, MakeComment(u"many"));
	int NumPieces = 0;
	EXPECT_FALSE(WriteAss({Many, FVector2f(1920.f, 1080.f)}, *Engine, 1.0,
						  [&NumPieces](std::string_view) { return ++NumPieces < 2; }));
	EXPECT_EQ(NumPieces, 2);
}

} // namespace
} // namespace Flitmark::Testing
