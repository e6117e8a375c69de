#include "Formats/CommentChange.h"
#include "Filtering/CommentFilter.h"
#include "Formats/CommentTraits.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>

namespace Flitmark::Testing
{
namespace
{

using testing::ElementsAre;
using testing::HasSubstr;

FServiceComment Say(const std::string& InText, double InSeconds, ECommentKind InKind = ECommentKind::Scroll,
					int64 InUser = 0)
{
	FServiceComment Comment;
	Comment.Text = InText;
	Comment.SpawnTicks = static_cast<int64>(InSeconds * static_cast<double>(TicksPerSecond));
	Comment.Kind = InKind;
	Comment.UserId = InUser;
	return Comment;
}

std::vector<std::string> GetTexts(const std::vector<FServiceComment>& InComments)
{
	std::vector<std::string> Texts;
	for (const FServiceComment& Comment : InComments)
	{
		Texts.push_back(Comment.Text);
	}
	return Texts;
}

std::vector<FFilterRule> Apply(const FFilterOptions& InOptions, std::vector<FServiceComment>& InOutComments)
{
	std::string Error;
	const auto Filter = FCommentFilter::Create(InOptions, Error);
	EXPECT_TRUE(Filter) << Error;
	return Filter ? Filter->Apply(InOutComments) : std::vector<FFilterRule>();
}

FFilterOptions Block(std::vector<std::string> InPatterns)
{
	FFilterOptions Options;
	Options.Block = std::move(InPatterns);
	return Options;
}
FFilterOptions BlockUser(const std::string& InUser)
{
	FFilterOptions Options;
	Options.BlockUsers = {InUser};
	return Options;
}
FFilterOptions Only(std::string_view InKinds)
{
	FFilterOptions Options;
	Options.Only = ParseKinds(InKinds);
	return Options;
}
FFilterOptions Merge(double InSeconds)
{
	FFilterOptions Options;
	Options.MergeSeconds = InSeconds;
	return Options;
}
FFilterOptions MaxPerSecond(int64 InMost)
{
	FFilterOptions Options;
	Options.MaxPerSecond = InMost;
	return Options;
}

FServiceComment WithLook(FServiceComment InComment, int32 InFontSize, uint32 InColor)
{
	InComment.FontSize = InFontSize;
	InComment.Color = InColor;
	return InComment;
}

/** Says its own name. */
FServiceComment From(const std::string& InName)
{
	FServiceComment Comment = Say(InName, 0);
	Comment.UserName = InName;
	return Comment;
}

struct FFilterCase
{
	const char* Name;
	FFilterOptions Options;
	std::vector<FServiceComment> Comments;
	std::vector<std::string> Left;
};

class Filters : public testing::TestWithParam<FFilterCase>
{
};

TEST_P(Filters, LeaveWhatTheyShould)
{
	std::vector<FServiceComment> Comments = GetParam().Comments;
	const std::vector<FFilterRule> Rules = Apply(GetParam().Options, Comments);
	EXPECT_EQ(GetTexts(Comments), GetParam().Left);
	int64 NumTaken = 0;
	for (const FFilterRule& Rule : Rules)
	{
		NumTaken += Rule.NumTaken;
	}
	EXPECT_EQ(NumTaken, static_cast<int64>(GetParam().Comments.size() - Comments.size()));
}

INSTANTIATE_TEST_SUITE_P(
	All, Filters,
	testing::Values(
		FFilterCase{"Nothing", {}, {Say("a", 0), Say("", 1)}, {"a", ""}},
		FFilterCase{"BlockPart", Block({"b+"}), {Say("abba", 0), Say("aca", 0)}, {"aca"}},
		FFilterCase{"BlockAnchored", Block({"^b$"}), {Say("abba", 0), Say("b", 0)}, {"abba"}},
		FFilterCase{"BlockCase", Block({"(?i)ÄH"}), {Say("äh", 0), Say("ah", 0)}, {"ah"}},
		FFilterCase{"BlockCharacter", Block({"^.$"}), {Say("弾", 0), Say("弾幕", 0)}, {"弾幕"}},
		FFilterCase{"BlockProperty", Block({"\\p{Han}"}), {Say("x弾", 0), Say("ダン", 0)}, {"ダン"}},
		FFilterCase{"BlockLaterLine", Block({"(?m)^x$"}), {Say("a\nx", 0), Say("ax", 0)}, {"ax"}},
		FFilterCase{"BlockBrokenText",
					Block({"a"}),
					{Say("\xFF\xC3", 0), Say("\xFF"
											 "a",
											 0)},
					{"\xFF\xC3"}},
		FFilterCase{"UserNumber", BlockUser("7"), {Say("a", 0, {}, 7), Say("b", 0, {}, 77)}, {"b"}},
		FFilterCase{"UserText", BlockUser("Mira"), {Say("a", 0, {}, 0xC173D986), Say("b", 0, {}, 0x5A944266)}, {"b"}},
		FFilterCase{"UserTextOfDigits", BlockUser("0042"), {Say("a", 0, {}, 0xBBE34EEB), Say("b", 0, {}, 42)}, {}},
		FFilterCase{
			"UserName", BlockUser("Ann"), {From("Ann"), From("ann"), From("Anna"), From("")}, {"ann", "Anna", ""}},
		FFilterCase{"UserPattern", BlockUser("/bot\\d*$/"), {From("bot"), From("a bot7"), From("bots")}, {"bots"}},
		FFilterCase{"UserPatternOfAny", BlockUser("/.*/"), {From("bot"), From("")}, {""}},
		FFilterCase{"UserOfSlashes", BlockUser("//"), {From("//"), From("a")}, {"a"}},
		FFilterCase{"Only",
					Only("top,bottom"),
					{Say("s", 0), Say("t", 0, ECommentKind::Top), Say("b", 0, ECommentKind::Bottom),
					 Say("u", 0, ECommentKind::Unknown)},
					{"t", "b"}},
		FFilterCase{"MergeCounts", Merge(5), {Say("gg", 1), Say("x", 2), Say("gg", 3), Say("gg", 6)}, {"gg ×3", "x"}},
		// A new window begins with the first comment outside the old one.
		FFilterCase{"MergeWindow",
					Merge(5),
					{Say("gg", 1), Say("gg", 6.5), Say("gg", 11), Say("gg", 11.6)},
					{"gg", "gg ×2", "gg"}},
		FFilterCase{
			"MergeSpace", Merge(5), {Say(" a  b\n", 1), Say("a\u3000b", 2), Say("ab", 2)}, {" a  b\n ×2", "ab"}},
		// Keeps the file's order, but decides in time order.
		FFilterCase{"MergeUnordered", Merge(5), {Say("gg", 9), Say("gg", 5), Say("x", 1)}, {"gg ×2", "x"}},
		FFilterCase{"MergeUnseen",
					Merge(5),
					{WithLook(Say("gg", 1), 0, 0xFFFFFFFF), WithLook(Say("gg", 1), 24, 0xFFFFFF00), Say("gg", -2),
					 Say("gg", 1, ECommentKind::Unknown), Say("gg", 2), Say("gg", 2)},
					{"gg", "gg", "gg", "gg", "gg ×2"}},
		FFilterCase{"MergeBlank", Merge(5), {Say("", 1), Say(" ", 1)}, {"", " "}},
		FFilterCase{"MaxFew", MaxPerSecond(3), {Say("a", 0), Say("b", 0.5), Say("c", 0.9)}, {"a", "b", "c"}},
		FFilterCase{"MaxSpread",
					MaxPerSecond(3),
					{Say("0", 0), Say("1", 0.1), Say("2", 0.2), Say("3", 0.3), Say("4", 0.4), Say("5", 0.5),
					 Say("6", 0.6), Say("7", 0.7), Say("8", 0.8), Say("n", 1), Say("m", 1)},
					{"1", "4", "7", "n", "m"}},
		FFilterCase{"MaxOfOne", MaxPerSecond(1), {Say("a", 5.9), Say("b", 5.1), Say("c", 5.5)}, {"c"}},
		FFilterCase{"MergeInvisible", Merge(5), {Say("\u200B", 1), Say("\u200B", 1)}, {"\u200B", "\u200B"}},
		FFilterCase{"MaxInvisible", MaxPerSecond(1), {Say("\u200B", 0), Say("hi", 0)}, {"\u200B", "hi"}},
		// Comments that are not seen don't count as a crowd, and are left alone.
		FFilterCase{"MaxUnseen",
					MaxPerSecond(1),
					{Say("u", 0, ECommentKind::Unknown), Say(" ", 0), Say("a", 0), Say("b", 0)},
					{"u", " ", "a"}},
		FFilterCase{"MaxNegative", MaxPerSecond(1), {Say("a", -0.5), Say("b", 0.5)}, {"a"}}),
	[](const auto& InCase) { return InCase.param.Name; });

TEST(Filter, AppliesItsRulesInOrderAndReportsEach)
{
	FFilterOptions Options = Block({"spam", "ad"});
	Options.BlockUsers = {"9"};
	Options.Only = ParseKinds("scroll");
	Options.MergeSeconds = 2.5;
	Options.MaxPerSecond = 2;
	std::vector<FServiceComment> Comments = {Say("spam ad", 0, ECommentKind::Top, 9),
											 Say("ad", 0, {}, 9),
											 Say("x", 0, {}, 9),
											 Say("t", 0, ECommentKind::Top),
											 Say("gg", 0),
											 Say("gg", 0),
											 Say("a", 0),
											 Say("b", 0)};
	const std::vector<FFilterRule> Rules = Apply(Options, Comments);
	std::vector<std::string> Told;
	for (const FFilterRule& Rule : Rules)
	{
		Told.push_back(Rule.Name + ": " + std::to_string(Rule.NumTaken) + "/" + std::to_string(Rule.NumChanged));
	}
	EXPECT_THAT(Told, ElementsAre("--block \"spam\": 1/0", "--block \"ad\": 1/0", "--block-user 9: 1/0",
								  "--only scroll: 1/0", "--merge 2.5: 1/1", "--max-per-second 2: 1/0"));
	EXPECT_THAT(GetTexts(Comments), ElementsAre("gg ×2", "b"));
}

TEST(Filter, RefusesWhatItDoesNotUnderstand)
{
	FFilterOptions NoUser;
	NoUser.BlockUsers = {""};
	FFilterOptions NoKind;
	NoKind.Only.emplace();
	const std::pair<FFilterOptions, const char*> Cases[] = {
		{Block({"a", "("}), "--block: \"(\" is not a valid regular expression: missing )"},
		{Block({"\xFF"}), "--block"},
		{Block({"a{1000}{1000}"}), "--block"},
		{BlockUser("/(/"), "--block-user: \"/(/\" is not a valid regular expression: missing )"},
		{NoUser, "--block-user: names no user"},
		{NoKind, "--only: names no mode"},
		{Merge(0), "--merge: must be above 0"},
		{Merge(std::nan("")), "--merge"},
		{MaxPerSecond(0), "--max-per-second: must be 1 or more"},
	};
	for (const auto& [Options, Said] : Cases)
	{
		std::string Error;
		EXPECT_FALSE(FCommentFilter::Create(Options, Error));
		EXPECT_THAT(Error, HasSubstr(Said));
	}
	for (const char* Kinds : {"", "scroll,", ",top", "Top", "reverse", "scroll top"})
	{
		EXPECT_FALSE(ParseKinds(Kinds)) << Kinds;
	}
}

/** Patterns come from anyone; none may take more than linear time. */
TEST(Filter, PatternsCannotRunAway)
{
	std::vector<FServiceComment> Comments = {Say(std::string(100'000, 'a') + "!", 0)};
	const auto Start = std::chrono::steady_clock::now();
	Apply(Block({"(a|aa)+$", "(a*)*b"}), Comments);
	EXPECT_EQ(Comments.size(), 1u);
	EXPECT_LT(std::chrono::steady_clock::now() - Start, std::chrono::seconds(20));
}

TEST(Change, KeepsTheRestOfAnEntry)
{
	const struct
	{
		const char* Source;
		const char* Expected;
	} Cases[] = {
		{R"({"danmaku_content":"a","x":1.50,"y":[null,{"danmaku_content":true}]})",
		 R"({"danmaku_content":"b \"c\"","x":1.50,"y":[null,{"danmaku_content":true}]})"},
		{R"({ "x" : 1e99, "danmaku_content" : {"a":[1]} })", R"({ "x" : 1e99, "danmaku_content" : "b \"c\"" })"},
		{R"({"x":"half \ud800","danmaku_content":"a"})", R"({"x":"half \ud800","danmaku_content":"b \"c\""})"},
		{R"({"danmaku\u005fcontent" :"a"})", R"({"danmaku\u005fcontent" :"b \"c\""})"},
		{R"({"Danmaku_Content":1,"danmaku_content":[2],"z":12345678901234567890})",
		 R"({"Danmaku_Content":1,"danmaku_content":"b \"c\"","z":12345678901234567890})"},
		{R"({"x":"\u00e9" })", R"({"x":"\u00e9","danmaku_content":"b \"c\"" })"},
		{"{}", R"({"danmaku_content":"b \"c\""})"},
		{"{ }", R"({"danmaku_content":"b \"c\"" })"},
		{"[1]", ""},
		{"7", ""},
		{"", ""},
	};
	for (const auto& Case : Cases)
	{
		FServiceComment Comment = Say("a", 0);
		Comment.Source = Case.Source;
		SetText(Comment, "b \"c\"");
		EXPECT_EQ(Comment.Text, "b \"c\"");
		EXPECT_EQ(Comment.Source, Case.Expected) << Case.Source;
	}
	FServiceComment Comment = Say("a", 0);
	Comment.Source = R"({"danmaku_spawn_time":"5","z":0})";
	SetSpawnTicks(Comment, -70'000'000);
	EXPECT_EQ(Comment.Source, R"({"danmaku_spawn_time":-70000000,"z":0})");
}

} // namespace
} // namespace Flitmark::Testing
