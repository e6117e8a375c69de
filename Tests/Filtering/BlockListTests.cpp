#include "Filtering/BlockList.h"
#include "Filtering/CommentFilter.h"
#include "Formats/FieldValues.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Flitmark::Testing
{
namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

FBlockList Parse(std::string_view InText)
{
	std::string Error;
	const std::optional<FBlockList> List = FBlockList::Parse(InText, Error);
	EXPECT_TRUE(List) << Error;
	return List.value_or(FBlockList());
}

/** Which of a few fixed texts remain. */
std::vector<std::string> Keep(std::string_view InList)
{
	const std::pair<const char*, const char*> Said[] = {
		{"Hello world", "ann"}, {"a+b", "bob"}, {"/slash/", "cy"}, {"ÄRGER", "Dr. Who"}, {"wwww", "42"}};
	std::vector<FServiceComment> Comments;
	for (const auto& [Text, User] : Said)
	{
		Comments.emplace_back().Text = Text;
		Comments.back().UserName = User;
		Comments.back().UserId = MakeUserId(User);
	}
	FFilterOptions Options;
	Options.BlockFiles.emplace_back("f", Parse(InList));
	std::string Error;
	const auto Filter = FCommentFilter::Create(Options, Error);
	EXPECT_TRUE(Filter) << Error;
	const std::vector<FFilterRule> Rules = Filter->Apply(Comments);
	EXPECT_EQ(Rules.size(), 1u);
	EXPECT_EQ(Rules.at(0).Name, "--block-file f");
	EXPECT_EQ(Rules.at(0).NumTaken + static_cast<int64>(Comments.size()), 5);
	std::vector<std::string> Texts;
	for (const FServiceComment& Comment : Comments)
	{
		Texts.push_back(Comment.Text);
	}
	return Texts;
}

TEST(BlockList, TakesWhatItLists)
{
	EXPECT_THAT(Keep("# nobody\n\n  \r\n"), ElementsAre("Hello world", "a+b", "/slash/", "ÄRGER", "wwww"));
	EXPECT_THAT(Keep("\xEF\xBB\xBFWORLD\r\nA+B\n"), ElementsAre("/slash/", "ÄRGER", "wwww"));
	EXPECT_THAT(Keep("ärger\n/^w+$/"), ElementsAre("Hello world", "a+b", "/slash/"));
	EXPECT_THAT(Keep("/hello/"), ElementsAre("Hello world", "a+b", "/slash/", "ÄRGER", "wwww"));
	EXPECT_THAT(Keep("/hello/i\nword:/slash/\nword:  a+b"), ElementsAre("ÄRGER", "wwww"));
	EXPECT_THAT(Keep("user:ann\nuser:42\nuser: Dr. Who"), ElementsAre("a+b", "/slash/"));
	EXPECT_THAT(Keep("user:/^[bc]/"), ElementsAre("Hello world", "ÄRGER", "wwww"));
	EXPECT_THAT(Keep("[w]\n<w>"), ElementsAre("Hello world", "a+b", "/slash/", "ÄRGER", "wwww"));
}

TEST(BlockList, ReadsWhatServicesExport)
{
	const FBlockList Xml = Parse("<?xml version=\"1.0\"?><filters>\n<item enabled=\"true\">t=a&amp;b</item>"
								 "<item enabled=\"false\">t=off</item><item enabled=\"true\">r=^x{2}</item>"
								 "<item>u=9f3a</item><item type=\"1\" filter=\"(?=x)\"/><item type='7'>?</item>"
								 "<item type=\"0\" enabled=\"1\">t=x</item></filters>");
	EXPECT_THAT(Xml.Words, ElementsAre("a&b", "t=x"));
	EXPECT_THAT(Xml.Patterns, ElementsAre("^x{2}"));
	EXPECT_THAT(Xml.Users, ElementsAre("9f3a"));
	EXPECT_EQ(Xml.NumDisabled, 1);
	EXPECT_THAT(Xml.Unusable, ElementsAre(HasSubstr("entry 5: \"(?=x)\" is not a regular expression that can be used"),
										  "entry 6: is of the unknown type \"7\""));

	const FBlockList Json = Parse(R"({"data":{"rule":[{"type":0,"filter":"w","opened":true,"id":1},)"
								  R"({"type":"1","filter":"/re/i"},{"type":2,"filter":"ab"},)"
								  R"({"type":0,"filter":"off","opened":false},{"type":0,"filter":"off","enabled":0},)"
								  R"({"type":0,"filter":""},{"other":1}]}})");
	EXPECT_THAT(Json.Words, ElementsAre("w"));
	EXPECT_THAT(Json.Patterns, ElementsAre("(?i)re"));
	EXPECT_THAT(Json.Users, ElementsAre("ab"));
	EXPECT_EQ(Json.NumDisabled, 2);
	EXPECT_THAT(Json.Unusable, ElementsAre("entry 6: has nothing to look for"));
}

TEST(BlockList, SaysWhatIsWrongAndWhere)
{
	const std::pair<std::string, const char*> Cases[] = {
		{"good\n/(/\n", "line 2: \"/(/\" is not a regular expression"},
		{"user:\n", "line 1: nothing follows \"user:\""},
		{"\n\nuser:/(/\n", "line 3: \"/(/\" is not a regular expression"},
		{"[{\"filter\":\"x\"},\n{]", "line 2: not JSON"},
		{"caf\xE9", "is not UTF-8"},
	};
	for (const auto& [Text, Said] : Cases)
	{
		std::string Error;
		EXPECT_FALSE(FBlockList::Parse(Text, Error)) << Text;
		EXPECT_THAT(Error, HasSubstr(Said));
	}
	const FBlockList Deep =
		Parse("{\"filter\":\"x\",\"deep\":" + std::string(100'000, '[') + std::string(100'000, ']') + "}");
	EXPECT_THAT(Deep.Words, IsEmpty());
}

TEST(BlockList, HoldsManyWords)
{
	std::string Text;
	for (int Index = 0; Index < 5'000; ++Index)
	{
		Text += "nonsense " + std::to_string(Index * 7919) + "\n";
	}
	EXPECT_THAT(Keep(Text + "wwww\n"), ElementsAre("Hello world", "a+b", "/slash/", "ÄRGER"));
}

} // namespace
} // namespace Flitmark::Testing
