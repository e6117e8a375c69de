#include "ProgramKit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <thread>

namespace Flitmark::Testing
{
namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/** What a shell command writes to standard output. */
std::string Capture(const std::string& InCommand)
{
	std::FILE* const Pipe = popen(InCommand.c_str(), "r");
	std::string Text;
	for (int Letter = std::fgetc(Pipe); Letter != EOF; Letter = std::fgetc(Pipe))
	{
		Text += static_cast<char>(Letter);
	}
	EXPECT_EQ(pclose(Pipe), 0) << InCommand;
	return Text;
}

/** Gray values of one frame, 320 x 180. */
std::string GrayFrame(const std::string& InPath, int InFrame = 0)
{
	return Capture("ffmpeg -nostdin -v error -i " + InPath + " -vf \"select='eq(n," + std::to_string(InFrame) +
				   ")'\" -vframes 1 -f rawvideo -pix_fmt gray -");
}

constexpr int FrameWidth = 320;

/** Whether anything in the given rows is bright, in a video that is otherwise black. */
bool IsLit(const std::string& InGray, int InFirstRow, int InEndRow)
{
	constexpr unsigned char Bright = 150;
	for (int Index = InFirstRow * FrameWidth; Index < InEndRow * FrameWidth; ++Index)
	{
		if (static_cast<unsigned char>(InGray[static_cast<std::size_t>(Index)]) > Bright)
		{
			return true;
		}
	}
	return false;
}

/** A comment at the top from second 0 and one at the bottom from second 1; large, since the video is small. */
std::string TwoComments()
{
	return MakeDocument({MakeComment(R"("danmaku_mode":1,"danmaku_font_size":72)"),
						 MakeComment(R"("danmaku_mode":2,"danmaku_font_size":72,"danmaku_spawn_time":10000000)")});
}

TEST(Burn, PaintsEachCommentInItsTimeAndPlace)
{
	const FTestFolder Folder;
	const std::string Comments = Folder.Write("c.json", TwoComments());
	const std::string Out = Folder.File("o.mp4");
	const FProgramResult Result = RunProgram({"burn", BlackVideo(), Comments, "-o", Out, "--preset", "ultrafast"});
	ASSERT_EQ(Result.ExitCode, 0) << Result.Error;
	EXPECT_THAT(Result.Out, HasSubstr(Out + ": 50 frames, 0:02"));
	EXPECT_EQ(Capture("ffprobe -v error -show_entries stream=codec_name -of csv=p=0 " + Out), "h264\naac\n");

	const std::string Early = GrayFrame(Out, 20);
	EXPECT_TRUE(IsLit(Early, 0, 30));
	EXPECT_FALSE(IsLit(Early, 30, 180));
	const std::string Late = GrayFrame(Out, 30);
	EXPECT_TRUE(IsLit(Late, 0, 30));
	EXPECT_TRUE(IsLit(Late, 150, 180));
}

TEST(Burn, BurnsTheAskedPart)
{
	const FTestFolder Folder;
	const std::string Comments = Folder.Write("c.json", TwoComments());
	const std::string Out = Folder.File("o.mkv");
	const FProgramResult Result =
		RunProgram({"burn", BlackVideo(), Comments, "-o", Out, "--from", "0:01", "--to", "1.4"});
	ASSERT_EQ(Result.ExitCode, 0) << Result.Error;
	EXPECT_THAT(Result.Out, HasSubstr("10 frames"));
	// Both: the first one began before this part.
	const std::string First = GrayFrame(Out);
	EXPECT_TRUE(IsLit(First, 0, 30));
	EXPECT_TRUE(IsLit(First, 150, 180));
}

/** The video is two seconds long; a canvas of the usual height has lanes for 17 comments of 24 points. */
TEST(Burn, TellsWhatAViewerSees)
{
	const FTestFolder Folder;
	std::vector<std::string> Elements(20, MakeComment(R"("danmaku_mode":1)"));
	for (const char* Change :
		 {R"("danmaku_mode":3)", R"("danmaku_content":" ")", R"("danmaku_spawn_time":20000000)",
		  R"("danmaku_spawn_time":-20000000)", R"("danmaku_spawn_time":15000000)", R"("danmaku_font_color":"#0000")"})
	{
		Elements.push_back(MakeComment(Change));
	}
	const std::string Comments = Folder.Write("c.json", MakeDocument(Elements));
	const std::string All = Comments + ": 26 comments: ";
	struct FCase
	{
		std::vector<std::string> Arguments;
		std::string Said;
	};
	const std::string Out = Folder.File("o.mkv");
	const std::string Picture = Folder.File("p.png");
	const FCase Cases[] = {
		{{"burn", "-o", Out},
		 "shown 18; no free lane 3; no lanes for the mode 1; no text, size, or color to see 2; later than the end 1; "
		 "never due "
		 "1\n"},
		// Comments already on the screen show.
		{{"burn", "-o", Out, "--from", "1", "--to", "1.5"}, "shown 18; no free lane 3; no lanes"},
		{{"burn", "-o", Out, "--from", "1.6", "--speed", "10"},
		 "shown 1; no free lane 3; no lanes for the mode 1; no text, size, or color to see 2; over by then 17; later"},
		{{"burn", "-o", Out, "--offset", "1"},
		 "shown 17; no free lane 3; no lanes for the mode 1; no text, size, or color to see 2; later than the end 2;"},
		{{"burn", "-o", Out, "--offset", "-1"}, "shown 2; earlier than the start 23; never due 1\n"},
		{{"shot", "--at", "0.5", "-o", Picture},
		 "shown 17; no free lane 3; no lanes for the mode 1; no text, size, or color to see 2; later than the end 2;"},
		{{"shot", "--at", "1.9", "-o", Picture, "--font-scale", "2"}, "shown 9; no free lane 12;"},
	};
	for (const FCase& Case : Cases)
	{
		std::vector<std::string> Arguments = Case.Arguments;
		Arguments.insert(Arguments.begin() + 1, {BlackVideo(), Comments});
		const FProgramResult Result = RunProgram(Arguments);
		EXPECT_EQ(Result.ExitCode, 0) << Result.Error;
		EXPECT_THAT(Result.Out, HasSubstr(All + Case.Said));
	}
}

struct FRefusalCase
{
	const char* Name;
	/** After VIDEO and COMMENTS; %/ stands for the folder that holds v.mp4, c.json and plain.txt. */
	std::vector<std::string> Arguments;
	const char* Said;
};

class Refusals : public testing::TestWithParam<FRefusalCase>
{
};

TEST_P(Refusals, LeaveAllAsItWas)
{
	const FTestFolder Folder;
	const std::string Video = Folder.Write("v.mp4", ReadFile(BlackVideo()));
	const std::string Comments = Folder.Write("c.json", TwoComments());
	Folder.Write("plain.txt", "no video");
	const std::vector<std::string> Before = Folder.List();
	std::vector<std::string> Arguments = GetParam().Arguments;
	for (std::string& Argument : Arguments)
	{
		Argument = Argument.starts_with("%/") ? Folder.File(Argument.substr(2)) : Argument;
	}
	const FProgramResult Result = RunProgram(Arguments);
	EXPECT_EQ(Result.ExitCode, 1) << Result.Out;
	EXPECT_THAT(Result.Error, HasSubstr(GetParam().Said));
	EXPECT_EQ(Folder.List(), Before);
	EXPECT_EQ(ReadFile(Video), ReadFile(BlackVideo()));
	EXPECT_EQ(ReadFile(Comments), TwoComments());
}

INSTANTIATE_TEST_SUITE_P(
	All, Refusals,
	testing::Values(
		FRefusalCase{"OutputIsVideo", {"burn", "%/v.mp4", "%/c.json", "-o", "%/v.mp4"}, "name another output"},
		FRefusalCase{
			"OutputIsDocument", {"burn", "%/v.mp4", "%/c.json", "-o", "%/c.json"}, "is the file of the comments"},
		FRefusalCase{"NoFolder", {"burn", "%/v.mp4", "%/c.json", "-o", "%/none/o.mp4"}, "none does not exist"},
		FRefusalCase{
			"Codec", {"burn", "%/v.mp4", "%/c.json", "-o", "%/o.mp4", "--codec", "x"}, "no such video encoder"},
		FRefusalCase{"Preset", {"burn", "%/v.mp4", "%/c.json", "-o", "%/o.mp4", "--preset", "x"}, "preset"},
		FRefusalCase{"Container", {"burn", "%/v.mp4", "%/c.json", "-o", "%/o.xyz"}, "o.xyz"},
		FRefusalCase{"FromBehindEnd", {"burn", "%/v.mp4", "%/c.json", "-o", "%/o.mp4", "--from", "99"}, "only 2.0"},
		FRefusalCase{"NotAVideo", {"burn", "%/plain.txt", "%/c.json", "-o", "%/o.mp4"}, "plain.txt"},
		FRefusalCase{
			"NotAVideoForShot", {"shot", "%/plain.txt", "%/c.json", "-o", "%/p.png", "--at", "0"}, "plain.txt"},
		FRefusalCase{"Swapped", {"burn", "%/c.json", "%/v.mp4", "-o", "%/o.mp4"}, "the video comes first"},
		FRefusalCase{"TwoVideos", {"shot", "%/v.mp4", "%/v.mp4", "-o", "%/p.png", "--at", "0"}, "is a video (MP4)"},
		FRefusalCase{"MissingDocument", {"burn", "%/v.mp4", "%/d.json", "-o", "%/o.mp4"}, "d.json: cannot be opened"},
		FRefusalCase{"ShotBehindEnd", {"shot", "%/v.mp4", "%/c.json", "-o", "%/p.png", "--at", "5:00"}, "only 2.0"}),
	[](const auto& InCase) { return InCase.param.Name; });

TEST(Burn, CtrlCLeavesNothing)
{
	// As slow as possible, so that it is caught at work.
	const std::string Video = MakeVideo("long.mp4", "-f lavfi -i testsrc2=s=640x360:r=25 -t 20 -pix_fmt yuv420p "
													"-c:v libx264 -preset ultrafast");
	for (const int Signal : {SIGINT, SIGTERM})
	{
		const FTestFolder Folder;
		const std::string Comments = Folder.Write("c.json", TwoComments());
		FProgram Program({"burn", Video, Comments, "-o", Folder.File("o.mp4"), "--preset", "veryslow"});
		for (int Try = 0; Try < 3000 && !Program.HasOpen(Folder); ++Try)
		{
			std::this_thread::sleep_for(std::chrono::milliseconds(10));
		}
		ASSERT_TRUE(Program.HasOpen(Folder)) << "the burn did not begin";
		Program.Send(Signal);
		const FProgramResult Result = Program.Wait();
		EXPECT_EQ(Result.ExitCode, 128 + Signal);
		EXPECT_THAT(Result.Error, HasSubstr("o.mp4 was not written"));
		EXPECT_THAT(Folder.List(), ElementsAre("c.json"));
	}
}

TEST(Shot, IsTheSameEachTimeAndObeysItsLook)
{
	const FTestFolder Folder;
	const std::string Comments = Folder.Write(
		"c.json",
		MakeDocument({MakeComment(), MakeComment(R"("danmaku_mode":1,"danmaku_content":"你好 👋🏽")")}));
	const auto Take = [&](const std::string& InName, const std::vector<std::string>& InMore)
	{
		std::vector<std::string> Arguments{"shot", BlackVideo(), Comments, "--at", "1.9", "-o", Folder.File(InName)};
		Arguments.insert(Arguments.end(), InMore.begin(), InMore.end());
		const FProgramResult Result = RunProgram(Arguments);
		EXPECT_EQ(Result.ExitCode, 0) << Result.Error;
		return GrayFrame(Folder.File(InName));
	};
	const std::string Plain = Take("plain.png", {"--seed", "7"});
	EXPECT_TRUE(IsLit(Plain, 0, 180));
	EXPECT_EQ(Take("again.png", {"--seed", "7"}), Plain);
	EXPECT_NE(Take("serif.png", {"--seed", "7", "--font", "DejaVu Serif"}), Plain);
	EXPECT_NE(Take("small.png", {"--seed", "7", "--scale", "10"}), Plain);
	EXPECT_FALSE(IsLit(Take("none.png", {"--opacity", "0"}), 0, 180));
}

TEST(Shot, SaysWhichFontItTookForAnUnknownOne)
{
	const FTestFolder Folder;
	const FProgramResult Result = RunProgram({"shot", BlackVideo(), Folder.Write("c.json", TwoComments()), "--at", "0",
											  "-o", Folder.File("p.png"), "--font", "No Such Family"});
	EXPECT_EQ(Result.ExitCode, 0);
	EXPECT_THAT(Result.Error, HasSubstr("no family \"No Such Family\" is installed"));
}

} // namespace
} // namespace Flitmark::Testing
