#include "ProgramKit.h"
#include "StopSignals.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/wait.h>

namespace Flitmark::Testing
{
namespace
{

using testing::AnyOf;
using testing::ElementsAre;
using testing::Eq;
using testing::HasSubstr;
using testing::Not;

/** File names come from archives and downloads and may contain anything; a terminal interprets some of it. */
TEST(Surroundings, NoNameOrOptionCommandsTheTerminal)
{
	const FTestFolder Folder;
	// Sets the window title, then clears the screen in both encodings, then reverses the text direction.
	const std::string Evil = "\x1b]0;x\x07\x1b[2J\xc2\x9b"
							 "2J\x9b\u202e\r\n";
	const std::string Document = MakeDocument({MakeComment("\"danmaku_content\":\"a\\u001b[2J\""), "17"});
	const std::string Comments = Folder.Write(Evil + ".json", Document);
	const std::string Plain = Folder.Write("c.json", Document);
	const std::string Garbage = Folder.Write(Evil + ".mp4", "\x1b[2J" + std::string(500, 'x'));
	const std::vector<std::string> Commands[] = {
		{"burn", BlackVideo(), Comments, "-o", Folder.File(Evil + "o.mp4"), "--preset", "ultrafast"},
		{"burn", Garbage, Comments, "-o", Folder.File("o.mp4")},
		{"burn", BlackVideo(), Plain, "-o", Folder.File("o.mp4"), "--codec", Evil},
		{"burn", BlackVideo(), Plain, "-o", Folder.File("o.mp4"), "--preset", Evil},
		{"burn", BlackVideo(), Plain, "-o", Folder.File("o." + Evil)},
		{"shot", BlackVideo(), Comments, "--at", "1", "-o", Folder.File(Evil + ".png"), "--font", Evil},
		{"shot", Garbage, Comments, "--at", "1", "-o", Folder.File("p.png")},
		{"check", Comments},
		{"check", Comments, "--json"},
		{"check", Garbage, "--json"},
		{"check", Garbage},
		{"check", Comments, "--size", Evil},
		{"check", Comments, "--block", Evil + "("},
		{"convert", Comments, Plain, "-o", Folder.File(Evil + "o.json"), "--offset", "5"},
		{"convert", Garbage, "-o", Folder.File("o.json")},
		{"stats", Comments, "-o", Folder.File(Evil + ".svg")},
		{"trace", Plain, "--script", Garbage},
		{"trace", Plain, "--save-dir", Garbage},
		{"trace", Garbage + "x"},
		{Evil},
		{"--" + Evil},
		{"check", "--" + Evil},
	};
	for (const std::vector<std::string>& Command : Commands)
	{
		SCOPED_TRACE(testing::PrintToString(Command));
		const FProgramResult Result = RunProgram(Command);
		const std::string Said = Result.Out + Result.Error;
		EXPECT_FALSE(Said.empty());
		for (const char* const Raw : {"\x1b", "\x07", "\xc2\x9b",
									  "\x9b"
									  "\xe2",
									  "\u202e", "\r"})
		{
			EXPECT_THAT(Said, Not(HasSubstr(Raw)));
		}
	}
}

TEST(Surroundings, TheFirstSignalIsHeardAndTheSecondEnds)
{
	const auto SendTwice = [](int InFirst, int InSecond)
	{
		CleanUpOnSignals();
		const FStopSignals Signals;
		std::raise(InFirst);
		std::fputs(Signals.GetFlag() && Signals.GetExitCode() == 128 + InFirst ? "heard" : "", stderr);
		std::raise(InSecond);
		std::fputs("still there", stderr);
		std::_Exit(0);
	};
	EXPECT_EXIT(SendTwice(SIGTERM, SIGTERM), testing::KilledBySignal(SIGTERM), "^heard$");
	EXPECT_EXIT(SendTwice(SIGHUP, SIGINT), testing::KilledBySignal(SIGINT), "^heard$");
	const auto SendOnce = []
	{
		CleanUpOnSignals();
		std::raise(SIGTERM);
		std::_Exit(0);
	};
	EXPECT_EXIT(SendOnce(), testing::KilledBySignal(SIGTERM), "^$") << "nobody listens";
}

TEST(Surroundings, TheClockOfATraceStandsAtItsLastTick)
{
	const FTestFolder Folder;
	const std::string Last = "9223372036854775807";
	const std::string Script = Folder.Write("s.jsonl", "{\"frame\":2,\"do\":\"seek\",\"to\":" + Last + "}\n");
	for (const std::vector<std::string>& Command :
		 {std::vector<std::string>{"trace", "--start", Last, "--frames", "4", "--positions"},
		  std::vector<std::string>{"trace", "--script", Script, "--frames", "6", "--positions"}})
	{
		const FProgramResult Result = RunProgram(Command);
		EXPECT_EQ(Result.ExitCode, 0) << Result.Error;
		EXPECT_THAT(Result.Out, HasSubstr("\"frame\":3,\"media\":" + Last));
		EXPECT_THAT(Result.Out, Not(HasSubstr("-")));
	}
}

/** How a shell command ended, and all its output. */
struct FShellResult
{
	int ExitCode = 0;
	std::string Said;
};

FShellResult RunShell(const std::string& InCommand)
{
	std::FILE* const Pipe = popen(("exec 2>&1; " + InCommand).c_str(), "r");
	FShellResult Result;
	for (int Letter = std::fgetc(Pipe); Letter != EOF; Letter = std::fgetc(Pipe))
	{
		Result.Said += static_cast<char>(Letter);
	}
	const int Status = pclose(Pipe);
	Result.ExitCode = WIFEXITED(Status) ? WEXITSTATUS(Status) : -WTERMSIG(Status);
	return Result;
}

/** Temporary data needs no folder, which a killed program would leave behind. */
TEST(Surroundings, ATraceNeedsNoTemporaryFolder)
{
	const FTestFolder Folder;
	const std::string Comments = Folder.Write("c.json", MakeDocument({MakeComment()}));
	const std::string Script =
		Folder.Write("s.jsonl", "{\"frame\":2,\"do\":\"save\",\"what\":\"FontSize\",\"value\":30}\n");
	const FShellResult Result =
		RunShell("TMPDIR=/nowhere " FLITMARK_PROGRAM " trace " + Comments + " --script " + Script);
	EXPECT_EQ(Result.ExitCode, 0) << Result.Said;
	EXPECT_THAT(Result.Said, HasSubstr("\"event\":\"placed\""));
}

TEST(Surroundings, LimitsAreNamedAndLeaveNothing)
{
#if defined(__SANITIZE_ADDRESS__)
	GTEST_SKIP() << "the sanitizer itself needs what the limits take away";
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
	GTEST_SKIP() << "the sanitizer itself needs what the limits take away";
#endif
#endif
	const FTestFolder Folder;
	const std::string Comments = Folder.Write("c.json", MakeDocument({MakeComment()}));
	int NumRefused = 0;
	for (const std::string Limit :
		 {"-n 4", "-n 5", "-n 7", "-v 60000", "-v 120000", "-v 200000", "-v 260000", "-v 330000", "-v 500000", "-f 4"})
	{
		for (const std::string& Command :
			 {"burn " + BlackVideo() + " " + Comments + " -o " + Folder.File("o.mp4"),
			  "shot " + BlackVideo() + " " + Comments + " --at 1 -o " + Folder.File("o.png")})
		{
			SCOPED_TRACE(Limit + " " + Command.substr(0, 4));
			// Files that the test inherited count against the limit, too.
			const std::string Close = "exec 3<&- 4<&- 5<&- 6<&- 7<&- 8<&- 9<&-; ";
			const FShellResult Result = RunShell(Close + "ulimit " + Limit + "; exec " FLITMARK_PROGRAM " " + Command);
			EXPECT_THAT(Result.ExitCode, AnyOf(Eq(0), Eq(1))) << Result.Said;
			EXPECT_THAT(Result.Said, Not(AnyOf(HasSubstr("std::"), HasSubstr("reinstall"), HasSubstr("_M_"))));
			if (Result.ExitCode == 1)
			{
				++NumRefused;
				EXPECT_THAT(Folder.List(), ElementsAre("c.json")) << Result.Said;
			}
			std::remove(Folder.File("o.mp4").c_str());
			std::remove(Folder.File("o.png").c_str());
		}
	}
	EXPECT_GT(NumRefused, 5);
}

} // namespace
} // namespace Flitmark::Testing
