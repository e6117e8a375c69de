#include "ProgramKit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Flitmark::Testing
{
namespace
{

using testing::HasSubstr;

struct FUsageCase
{
	const char* Name;
	std::vector<std::string> Arguments;
	int ExitCode;
	const char* InOut;
	const char* InError;
};

class Usage : public testing::TestWithParam<FUsageCase>
{
};

TEST_P(Usage, EndsAsItShould)
{
	const FProgramResult Result = RunProgram(GetParam().Arguments);
	EXPECT_EQ(Result.ExitCode, GetParam().ExitCode);
	EXPECT_THAT(Result.Out, HasSubstr(GetParam().InOut));
	EXPECT_THAT(Result.Error, HasSubstr(GetParam().InError));
	EXPECT_EQ(Result.Error.empty(), *GetParam().InError == '\0') << Result.Error;
}

INSTANTIATE_TEST_SUITE_P(
	All, Usage,
	testing::Values(
		FUsageCase{"Help", {"--help"}, 0, "flitmark burn film.mp4", ""},
		FUsageCase{"Version", {"--version"}, 0, "flitmark 0.", ""},
		FUsageCase{"BurnHelp", {"burn", "--help"}, 0, "--crf", ""},
		FUsageCase{"ShotHelp", {"shot", "--help"}, 0, "--at", ""},
		FUsageCase{"OverlayHelp", {"overlay", "--help"}, 0, "qtrle", ""},
		FUsageCase{"PictureSize", {"overlay", "c", "-o", "o.mov", "--size", "1920x"}, 2, "", "\"1920x\" is not a size"},
		FUsageCase{"HugePicture", {"overlay", "c", "-o", "o.mov", "--size", "90000x9"}, 2, "", "is not a size"},
		FUsageCase{"Rate", {"overlay", "c", "-o", "o.mov", "--fps", "30/0"}, 2, "", "\"30/0\" is not a frame rate"},
		FUsageCase{"RateAndLike",
				   {"overlay", "c", "-o", "o.mov", "--fps", "30", "--like", "v"},
				   2,
				   "",
				   "--fps excludes --like"},
		FUsageCase{"OverlayEnd", {"overlay", "c", "-o", "o.mov", "--from", "2", "--to", "1"}, 2, "", "must be after"},
		FUsageCase{"CheckHelp", {"check", "--help"}, 0, "Exit status", ""},
		FUsageCase{"TraceHelp", {"trace", "--help"}, 0, "--script", ""},
		FUsageCase{"Nothing", {}, 2, "", "flitmark: no command given; see"},
		FUsageCase{"UnknownCommand", {"paint"}, 2, "", "unknown command \"paint\"; see \"flitmark --help\""},
		FUsageCase{"UnknownFirstOption", {"--fast"}, 2, "", "unknown option \"--fast\""},
		FUsageCase{"UnknownOption", {"check", "x", "--fast"}, 2, "", "--fast"},
		FUsageCase{"MissingFile", {"check"}, 2, "", "COMMENTS is required"},
		FUsageCase{"MissingOutput", {"burn", "v", "c"}, 2, "", "--output is required"},
		FUsageCase{"MissingTime", {"shot", "v", "c", "-o", "p.png"}, 2, "", "--at is required"},
		FUsageCase{"WrongTime", {"shot", "v", "c", "-o", "p.png", "--at", "1:60"}, 2, "", "\"1:60\" is not a time"},
		FUsageCase{"NegativeTime", {"burn", "v", "c", "-o", "o.mp4", "--from=-3"}, 2, "", "\"-3\" is not a time"},
		FUsageCase{"EndBeforeBegin",
				   {"burn", "v", "c", "-o", "o.mp4", "--from", "1:00", "--to", "60"},
				   2,
				   "",
				   "--to: must be after --from"},
		FUsageCase{"WrongSize", {"check", "x", "--size", "0x5"}, 2, "", "\"0x5\" is not a size"},
		FUsageCase{"Opacity", {"shot", "v", "c", "-o", "p.png", "--at", "1", "--opacity", "1.5"}, 2, "", "--opacity"},
		FUsageCase{"Scale", {"burn", "v", "c", "-o", "o.mp4", "--scale", "0"}, 2, "", "--scale"},
		FUsageCase{"Area", {"burn", "v", "c", "-o", "o.mp4", "--area", "0.05"}, 2, "", "from 0.1 to 1"},
		FUsageCase{"Speed", {"trace", "--speed", "0"}, 2, "", "--speed"},
		FUsageCase{"FontScale", {"trace", "--font-scale", "11"}, 2, "", "--font-scale"},
		FUsageCase{"Outline", {"shot", "v", "c", "-o", "p.png", "--at", "1", "--outline", "-1"}, 2, "", "--outline"},
		FUsageCase{"Offset", {"trace", "--offset", "+-5"}, 2, "", "\"+-5\" is not a time of up to a day"},
		FUsageCase{"Seed", {"burn", "v", "c", "-o", "o.mp4", "--seed", "x"}, 2, "", "--seed"},
		FUsageCase{"OtherPicture", {"shot", "v", "c", "-o", "p.jpg", "--at", "1"}, 2, "", "only PNG"},
		FUsageCase{"ConvertHelp", {"convert", "--help"}, 0, "--offset", ""},
		FUsageCase{"StatsHelp", {"stats", "--help"}, 0, "density.svg", ""},
		FUsageCase{
			"Pattern", {"burn", "v", "c", "-o", "o.mp4", "--block", "*"}, 2, "", "\"*\" is not a regular expression"},
		FUsageCase{"NoUser", {"check", "c", "--block-user", ""}, 2, "", "--block-user: must not be empty"},
		FUsageCase{"UserPattern",
				   {"check", "c", "--block-user", "/(/"},
				   2,
				   "",
				   "\"/(/\" is not a regular expression: missing )"},
		FUsageCase{"Paid", {"stats", "c", "--paid", "free"}, 2, "", "--paid"},
		FUsageCase{"Modes", {"trace", "c", "--only", "scroll,left"}, 2, "", "\"scroll,left\" is not a list of modes"},
		FUsageCase{"NoMode", {"check", "c", "--only", "top", "--no-top"}, 1, "", "names no mode"},
		FUsageCase{"Window", {"shot", "v", "c", "--merge", "0"}, 2, "", "\"0\" is not a number of seconds above 0"},
		FUsageCase{"Most", {"stats", "c", "--max-per-second", "0"}, 2, "", "\"0\" is not a whole number of 1 or more"},
		FUsageCase{"Reverse", {"convert", "c", "-o", "o", "--reverse", "mirror"}, 2, "", "--reverse"},
		FUsageCase{"NoSuchFile", {"check", "/nowhere/c.json"}, 1, "", "flitmark: /nowhere/c.json: cannot be opened"},
		FUsageCase{"Folder", {"check", "/tmp"}, 1, "", "flitmark: /tmp: is a folder"},
		FUsageCase{"NoVideo", {"burn", "/nowhere/v.mp4", "c", "-o", "/tmp/o.mp4"}, 1, "", "/nowhere/v.mp4"}),
	[](const auto& InCase) { return InCase.param.Name; });

/** Comparisons with NaN are false, and an infinite canvas never ends: no option takes either. */
TEST(Usage, NoNumberIsNanOrInfinite)
{
	const std::pair<std::vector<std::string>, std::vector<const char*>> Commands[] = {
		{{"burn", "v", "c", "-o", "o.mp4"},
		 {"--scale", "--opacity", "--area", "--speed", "--font-scale", "--outline", "--offset", "--crf", "--seed",
		  "--threads", "--from", "--to", "--merge", "--max-per-second"}},
		{{"shot", "v", "c", "-o", "p.png"}, {"--at"}},
		{{"overlay", "c", "-o", "o.mov"}, {"--fps", "--size", "--from", "--to", "--crf"}},
		{{"check", "c"}, {"--size"}},
		{{"convert", "c", "-o", "o.json"}, {"--offset"}},
		{{"trace"}, {"--size", "--fps", "--start", "--frames", "--seed"}},
	};
	for (const auto& [Command, Options] : Commands)
	{
		for (const char* Option : Options)
		{
			for (const std::string Number : {"nan", "-nan", "inf", "-inf", "infinity", "1e999"})
			{
				std::vector<std::string> Arguments = Command;
				const bool bSize = std::string_view(Option) == "--size";
				Arguments.push_back(Option + ("=" + Number) + (bSize ? "x100" : ""));
				const FProgramResult Result = RunProgram(Arguments);
				EXPECT_EQ(Result.ExitCode, 2) << Arguments.back();
				EXPECT_THAT(Result.Error, HasSubstr(Option));
			}
		}
	}
}

TEST(Usage, AFullDiskUnderTheReportIsSaid)
{
	const FTestFolder Folder;
	const FProgramResult Result =
		RunProgram({"check", Folder.Write("c.json", MakeDocument({MakeComment()}))}, "/dev/full");
	EXPECT_EQ(Result.ExitCode, 1);
	EXPECT_THAT(Result.Error, HasSubstr("standard output"));
}

} // namespace
} // namespace Flitmark::Testing
