#include "ProgramKit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

namespace Flitmark::Testing
{
namespace
{

using testing::ElementsAre;
using testing::HasSubstr;

std::string AllModes()
{
	return MakeDocument({MakeComment(R"("danmaku_font_size":72,"danmaku_font_color":"#FF3020")"),
						 MakeComment(R"("danmaku_mode":1,"danmaku_font_size":72,"danmaku_content":"你好 👋🏽")"),
						 MakeComment(R"("danmaku_mode":2,"danmaku_font_size":72,"danmaku_spawn_time":10000000)")});
}

/** The raw frames that ffmpeg outputs for these arguments. */
std::string Raw(const FTestFolder& InFolder, const std::string& InArguments)
{
	const std::string Path = InFolder.File("raw");
	const std::string Command = "ffmpeg -nostdin -v error -y " + InArguments + " -pix_fmt yuv444p -f rawvideo " + Path;
	EXPECT_EQ(std::system(Command.c_str()), 0) << Command;
	return ReadFile(Path);
}

/** Real comments, from the same file, over the same video: by a burn, and by ffmpeg. */
TEST(Overlay, LaidOverTheVideoGivesTheBurn)
{
	const FTestFolder Folder;
	const std::string Comments = Folder.Write("c.json", AllModes());
	const std::string Video =
		MakeVideo("under.mov", "-f lavfi -i testsrc2=s=320x180:r=25 -t 2 -pix_fmt yuv444p -c:v libx264");
	const std::string Burned = Folder.File("b.mkv");
	const std::string Out = Folder.File("o.mov");
	ASSERT_EQ(RunProgram({"burn", Video, Comments, "-o", Burned, "--codec", "ffv1"}).ExitCode, 0);
	const FProgramResult Result = RunProgram({"overlay", Comments, "-o", Out, "--codec", "qtrle", "--like", Video});
	ASSERT_EQ(Result.ExitCode, 0) << Result.Error;
	EXPECT_THAT(Result.Out, HasSubstr(Out + ": 50 frames, 0:02"));
	const std::string Expected = Raw(Folder, "-i " + Burned);
	const std::string Plain = Raw(Folder, "-i " + Video);
	const std::string Made = Raw(Folder, "-i " + Video + " -i " + Out + " -filter_complex overlay=format=yuv444");
	ASSERT_EQ(Made.size(), Expected.size());
	int Most = 0;
	int MostPlain = 0;
	for (std::size_t Index = 0; Index < Made.size(); ++Index)
	{
		const auto Off = [&Expected, Index](const std::string& InFrames)
		{
			return std::abs(static_cast<unsigned char>(InFrames[Index]) - static_cast<unsigned char>(Expected[Index]));
		};
		Most = std::max(Most, Off(Made));
		MostPlain = std::max(MostPlain, Off(Plain));
	}
	EXPECT_LE(Most, 2);
	EXPECT_GT(MostPlain, 100) << "nothing was burned";
}

TEST(Overlay, EndsWhenTheLastCommentIsOver)
{
	const FTestFolder Folder;
	const std::string Comments = Folder.Write("c.json", AllModes());
	const FProgramResult Trace =
		RunProgram({"trace", Comments, "--fps", "10", "--size", "1920x1080", "--measure", "fonts"});
	ASSERT_EQ(Trace.ExitCode, 0) << Trace.Error;
	// The frame in which the last comment ends, from a log of the same steps, whose first step is one frame long.
	const std::size_t Last = Trace.Out.rfind("\"ended\"");
	ASSERT_NE(Last, std::string::npos);
	const std::size_t Line = Trace.Out.rfind("{\"frame\":", Last);
	const int Ended = std::atoi(Trace.Out.c_str() + Line + 9);
	const FProgramResult Result = RunProgram(
		{"overlay", Comments, "-o", Folder.File("o.mov"), "--codec", "qtrle", "--fps", "10", "--size", "160x90"});
	ASSERT_EQ(Result.ExitCode, 0) << Result.Error;
	EXPECT_THAT(Result.Out, HasSubstr(": " + std::to_string(Ended + 1) + " frames"));
}

TEST(Overlay, CtrlCLeavesNothing)
{
	const FTestFolder Folder;
	const std::string Comments = Folder.Write("c.json", AllModes());
	FProgram Program({"overlay", Comments, "-o", Folder.File("o.mov"), "--to", "3:00:00"});
	for (int Try = 0; Try < 3000 && !Program.HasOpen(Folder); ++Try)
	{
		std::this_thread::sleep_for(std::chrono::milliseconds(10));
	}
	ASSERT_TRUE(Program.HasOpen(Folder)) << "it did not begin";
	Program.Send(SIGTERM);
	const FProgramResult Result = Program.Wait();
	EXPECT_EQ(Result.ExitCode, 128 + SIGTERM);
	EXPECT_THAT(Result.Error, HasSubstr("o.mov was not finished"));
	EXPECT_THAT(Folder.List(), ElementsAre("c.json"));
}

} // namespace
} // namespace Flitmark::Testing
