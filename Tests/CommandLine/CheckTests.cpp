#include "ProgramKit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace Flitmark::Testing
{
namespace
{

using testing::HasSubstr;
using testing::Not;

std::string CheckAsJson(const std::string& InDocument, int InExitCode)
{
	const FTestFolder Folder;
	const FProgramResult Result = RunProgram({"check", Folder.Write("c.json", InDocument), "--json"});
	EXPECT_EQ(Result.ExitCode, InExitCode) << Result.Out << Result.Error;
	EXPECT_EQ(Result.Error, "");
	return Result.Out;
}

struct FFindingCase
{
	const char* Name;
	/** The document's second comment; the first is a good one. */
	std::string Comment;
	/** The only finding, without its text. */
	const char* Kind;
	const char* Key;
	bool bSeen;
};

class Findings : public testing::TestWithParam<FFindingCase>
{
};

TEST_P(Findings, AreToldByElement)
{
	const FFindingCase& Case = GetParam();
	const std::string Out = CheckAsJson(MakeDocument({MakeComment(), Case.Comment}), Case.bSeen ? 0 : 1);
	const std::string Key = *Case.Key ? ",\"key\":\"" + std::string(Case.Key) + "\"" : "";
	EXPECT_THAT(Out, HasSubstr("\"findings\":[{\"kind\":\"" + std::string(Case.Kind) + "\"" + Key +
							   ",\"seen\":" + (Case.bSeen ? "true" : "false")));
	EXPECT_THAT(Out, HasSubstr("\"count\":1,\"elements\":[1]}]"));
	EXPECT_THAT(Out, HasSubstr(std::string("\"comments\":2,\"unseen\":") + (Case.bSeen ? "0" : "1")));
}

std::string Without(const std::string& InKey)
{
	// The changed list comes first; it is cut off again.
	return "{" + MakeComment("\"" + InKey + "\":0").substr(InKey.size() + 6);
}

INSTANTIATE_TEST_SUITE_P(
	All, Findings,
	testing::Values(
		FFindingCase{"Number", "7", "not-an-object", "", false},
		FFindingCase{"Null", "null", "not-an-object", "", false},
		FFindingCase{"NoText", MakeComment(R"("danmaku_content":"")"), "empty-text", "", false},
		FFindingCase{"BlankText", MakeComment(R"("danmaku_content":" \u3000\n\u200B")"), "empty-text", "", false},
		FFindingCase{"Reverse", MakeComment(R"("danmaku_mode":3)"), "unserved-mode", "", false},
		FFindingCase{"NegativeMode", MakeComment(R"("danmaku_mode":-1)"), "unserved-mode", "", false},
		FFindingCase{"HugeMode", MakeComment(R"("danmaku_mode":1e999)"), "unserved-mode", "", false},
		FFindingCase{"ColorName", MakeComment(R"("danmaku_font_color":"white")"), "invisible-color", "", false},
		FFindingCase{"ColorAlpha", MakeComment(R"("danmaku_font_color":"#FFFFFF00")"), "invisible-color", "", false},
		FFindingCase{"NoSize", MakeComment(R"("danmaku_font_size":0.9)"), "size-not-positive", "", false},
		FFindingCase{"LargestSize", MakeComment(R"("danmaku_font_size":2147483647)"), "size-too-large", "", false},
		// A bottom comment has 17 lanes, 257 units; a scrolling one of this size has room.
		FFindingCase{"BottomSize", MakeComment(R"("danmaku_mode":2,"danmaku_font_size":200)"), "size-too-large", "",
					 false},
		FFindingCase{"ManyLines",
					 MakeComment(R"("danmaku_mode":2,"danmaku_font_size":60,"danmaku_content":"a\nb\r\nc\rd")"),
					 "size-too-large", "", false},
		FFindingCase{"BeforeStart", MakeComment(R"("danmaku_spawn_time":-10000000)"), "never-reached", "", false},
		FFindingCase{"AfterADay", MakeComment(R"("danmaku_spawn_time":864000000000)"), "never-reached", "", false},
		FFindingCase{"MissingText", Without("danmaku_content"), "missing-key", "danmaku_content", false},
		FFindingCase{"MissingColor", Without("danmaku_font_color"), "missing-key", "danmaku_font_color", false},
		FFindingCase{"MissingTime", Without("danmaku_spawn_time"), "missing-key", "danmaku_spawn_time", true},
		FFindingCase{"MissingName", Without("user_display_name"), "missing-key", "user_display_name", true},
		FFindingCase{"MistypedSize", MakeComment(R"("danmaku_font_size":"large")"), "mistyped-key", "danmaku_font_size",
					 false},
		FFindingCase{"MistypedTime", MakeComment(R"("danmaku_spawn_time":1e300)"), "mistyped-key", "danmaku_spawn_time",
					 true},
		FFindingCase{"MistypedDate", MakeComment(R"("danmaku_post_date":"yesterday")"), "mistyped-key",
					 "danmaku_post_date", true},
		FFindingCase{"LongText", MakeComment("\"danmaku_content\":\"" + std::string(5000, 'x') + "\""), "text-cut", "",
					 true}),
	[](const auto& InCase) { return InCase.param.Name; });

TEST(Check, ReadsValuesAsTheOverlayDoes)
{
	const std::string Out = CheckAsJson(
		MakeDocument({MakeComment(R"("danmaku_mode":"1","danmaku_font_size":"25.7","danmaku_content":12)"),
					  MakeComment(R"("danmaku_mode":-0.5,"danmaku_spawn_time":-5000000,"danmaku_font_color":"#0f0")"),
					  MakeComment(R"("danmaku_mode":2.9,"danmaku_spawn_time":29999999)"),
					  MakeComment(R"("danmaku_spawn_time":863999999999)")}),
		0);
	EXPECT_THAT(
		Out,
		HasSubstr(R"("unseen":0,"crowded_out":0,"findings":[],"modes":{"scroll":2,"top":1,"bottom":1,"other":0})"));
	EXPECT_THAT(Out, HasSubstr(R"("seconds":3,"first_second":0,"last_second":86399,"busiest_second":0,)"
							   R"("comments_in_busiest":2,"lanes":{"shown":4,"blank":0,"no_lane":0,"unserved":0},)"
							   R"("worst_minutes":[],"remedies":[]})"));
}

struct FFaultCase
{
	const char* Name;
	std::string Text;
	const char* Said;
};

class Faults : public testing::TestWithParam<FFaultCase>
{
};

TEST_P(Faults, AreToldWithTheirPlace)
{
	const FTestFolder Folder;
	const std::string Path = Folder.Write("c.json", GetParam().Text);
	const FProgramResult Result = RunProgram({"check", Path});
	EXPECT_EQ(Result.ExitCode, 1);
	EXPECT_EQ(Result.Out, "");
	EXPECT_THAT(Result.Error, HasSubstr("flitmark: " + Path + GetParam().Said));
	// A burn refuses it in the same words.
	const FProgramResult Burnt = RunProgram({"burn", BlackVideo(), Path, "-o", Folder.File("o.mp4")});
	EXPECT_EQ(Burnt.ExitCode, 1);
	EXPECT_EQ(Burnt.Error, Result.Error);
	EXPECT_EQ(Folder.List().size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(All, Faults,
						 testing::Values(FFaultCase{"Empty", "", ": is empty"},
										 FFaultCase{"Comma", "{\"datas\":[\n  {},\n  }\n]}", ":3:3: not JSON"},
										 FFaultCase{"CutOff", "{\"datas\":[{\"a\":1", ":1:17: not JSON"},
										 FFaultCase{"List", "[{}]", ": is JSON, or looks like it"},
										 FFaultCase{"OtherName", R"({"comments":[]})",
													": is JSON with no comments in it"},
										 FFaultCase{"NoList", R"({"datas":{}})", ": its \"datas\" is not a list"}),
						 [](const auto& InCase) { return InCase.param.Name; });

TEST(Check, NamesTheFirstOfManyElements)
{
	const FTestFolder Folder;
	std::vector<std::string> Comments(15'000, MakeComment(R"("danmaku_mode":9)"));
	Comments[0] = MakeComment();
	const FProgramResult Result = RunProgram({"check", Folder.Write("c.json", MakeDocument(Comments))});
	EXPECT_EQ(Result.ExitCode, 1);
	EXPECT_THAT(Result.Out, HasSubstr("15,000 comments, 14,999 will not be seen"));
	EXPECT_THAT(Result.Out, HasSubstr("mode is not 0 (scroll), 1 (top) or 2 (bottom): elements 1, 2, 3, 4, 5, 6, 7, "
									  "8, 9, 10 and 14,989 more"));
	EXPECT_THAT(Result.Out, HasSubstr("the first is element 0"));
	EXPECT_LT(Result.Out.size(), 1000u);
}

/**
 * A canvas has 53 lanes for scrolling comments. A comment of 24 points takes three, of which only the first is checked.
 */
TEST(Check, CountsWhatFindsNoLaneWithoutFault)
{
	const FTestFolder Folder;
	const std::string Path = Folder.Write(
		"c.json", MakeDocument(std::vector<std::string>(60, MakeComment(R"("danmaku_spawn_time":600000000)"))));
	const FProgramResult Result = RunProgram({"check", Path});
	EXPECT_EQ(Result.ExitCode, 0);
	for (const char* Said :
		 {"60 comments, all can be seen where there is a lane",
		  "lanes    17 of 60 comments that are due find one, 43 don't",
		  "worst    1:00 to 2:00: no free lane for 43 of 60 comments", "--area 1: no free lane for 37 of them",
		  "twice the --scale: no free lane for 25 of them", "--max-per-second 17:"})
	{
		EXPECT_THAT(Result.Out, HasSubstr(Said));
	}
	EXPECT_THAT(RunProgram({"check", Path, "--area", "1"}).Out, HasSubstr("lanes    23 of 60"));
	EXPECT_THAT(RunProgram({"check", Path, "--json"}).Out,
				HasSubstr(R"("lanes":{"shown":17,"blank":0,"no_lane":43,"unserved":0},)"
						  R"("worst_minutes":[{"minute":1,"due":60,"no_lane":43}])"));
}

TEST(Check, NeedsNoFonts)
{
	const FTestFolder Folder;
	const std::string Path = Folder.Write("c.json", MakeDocument({MakeComment()}));
	setenv("FONTCONFIG_FILE", Folder.Write("fonts.conf", "<fontconfig></fontconfig>").c_str(), 1);
	const FProgramResult Result = RunProgram({"check", Path});
	unsetenv("FONTCONFIG_FILE");
	EXPECT_EQ(Result.ExitCode, 0);
	EXPECT_THAT(Result.Error, HasSubstr("widths are estimated"));
	EXPECT_THAT(Result.Out, HasSubstr("lanes    1 of 1 comment"));
}

TEST(Check, CanvasDecidesWhichSizesFit)
{
	const FTestFolder Folder;
	const std::string Path = Folder.Write("c.json", MakeDocument({MakeComment(R"("danmaku_font_size":100)")}));
	EXPECT_EQ(RunProgram({"check", Path}).ExitCode, 0);
	EXPECT_EQ(RunProgram({"check", Path, "--size", "320x180"}).ExitCode, 1);
}

} // namespace
} // namespace Flitmark::Testing
