#include "ProgramKit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <map>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Flitmark::Testing
{

FTestFolder::FTestFolder()
{
	std::string Pattern = (std::filesystem::temp_directory_path() / "flitmark-test-XXXXXX").string();
	Path = mkdtemp(Pattern.data());
}

FTestFolder::~FTestFolder()
{
	std::error_code Ignored;
	std::filesystem::remove_all(Path, Ignored);
}

std::string FTestFolder::Write(const std::string& InName, const std::string& InText) const
{
	std::ofstream(File(InName), std::ios::binary) << InText;
	return File(InName);
}

std::vector<std::string> FTestFolder::List() const
{
	std::vector<std::string> Names;
	for (const auto& Entry : std::filesystem::directory_iterator(Path))
	{
		Names.push_back(Entry.path().filename().string());
	}
	std::ranges::sort(Names);
	return Names;
}

std::string ReadFile(const std::string& InPath)
{
	std::ifstream File(InPath, std::ios::binary);
	return {std::istreambuf_iterator<char>(File), {}};
}

FProgram::FProgram(const std::vector<std::string>& InArguments, const std::string& InOutput)
{
	std::vector<std::string> Texts{FLITMARK_PROGRAM};
	Texts.insert(Texts.end(), InArguments.begin(), InArguments.end());
	std::vector<char*> Arguments;
	std::ranges::transform(Texts, std::back_inserter(Arguments), [](std::string& InText) { return InText.data(); });
	Arguments.push_back(nullptr);
	const std::string Output = InOutput.empty() ? Folder.File("out") : InOutput;
	posix_spawn_file_actions_t Actions;
	posix_spawn_file_actions_init(&Actions);
	posix_spawn_file_actions_addopen(&Actions, STDOUT_FILENO, Output.c_str(), O_WRONLY | O_CREAT, 0644);
	posix_spawn_file_actions_addopen(&Actions, STDERR_FILENO, Folder.File("err").c_str(), O_WRONLY | O_CREAT, 0644);
	EXPECT_EQ(posix_spawn(&Process, FLITMARK_PROGRAM, &Actions, nullptr, Arguments.data(), environ), 0);
	posix_spawn_file_actions_destroy(&Actions);
}

FProgram::~FProgram()
{
	if (Process > 0)
	{
		Send(SIGKILL);
		waitpid(Process, nullptr, 0);
	}
}

void FProgram::Send(int InSignal) const
{
	kill(Process, InSignal);
}

bool FProgram::HasOpen(const FTestFolder& InFolder) const
{
	std::error_code Ignored;
	for (const auto& Entry : std::filesystem::directory_iterator("/proc/" + std::to_string(Process) + "/fd", Ignored))
	{
		if (std::filesystem::read_symlink(Entry, Ignored).string().starts_with(InFolder.File("")))
		{
			return true;
		}
	}
	return false;
}

FProgramResult FProgram::Wait()
{
	int Status = 0;
	rusage Usage = {};
	EXPECT_EQ(wait4(Process, &Status, 0, &Usage), Process);
	Process = -1;
	FProgramResult Result;
	Result.ExitCode = WIFEXITED(Status) ? WEXITSTATUS(Status) : -WTERMSIG(Status);
	Result.Out = ReadFile(Folder.File("out"));
	Result.Error = ReadFile(Folder.File("err"));
	Result.PeakMiB = Usage.ru_maxrss / 1024;
	return Result;
}

FProgramResult RunProgram(const std::vector<std::string>& InArguments, const std::string& InOutput)
{
	return FProgram(InArguments, InOutput).Wait();
}

std::string MakeComment(const std::string& InChange)
{
	const std::pair<const char*, const char*> Members[] = {
		{"danmaku_id", "1"},
		{"post_id", "2"},
		{"user_id", "3"},
		{"user_display_name", "\"Ada\""},
		{"danmaku_post_date", "\"2024.05.06-07.08.09\""},
		{"danmaku_spawn_time", "5000000"},
		{"danmaku_content", "\"Hello\""},
		{"danmaku_mode", "0"},
		{"danmaku_font_size", "24"},
		{"danmaku_font_color", "\"#FFFFFF\""},
	};
	std::string Text = InChange;
	for (const auto& [Key, Value] : Members)
	{
		const std::string Quoted = "\"" + std::string(Key) + "\"";
		if (InChange.find(Quoted) == std::string::npos)
		{
			Text += (Text.empty() ? "" : ",") + Quoted + ":" + Value;
		}
	}
	return "{" + Text + "}";
}

std::string MakeDocument(const std::vector<std::string>& InComments)
{
	std::string Text;
	for (const std::string& Comment : InComments)
	{
		Text += (Text.empty() ? "" : ",\n") + Comment;
	}
	return "{\"datas\":[" + Text + "]}\n";
}

std::string MakeVideo(const std::string& InName, const std::string& InArguments)
{
	static const FTestFolder Folder;
	const std::string Path = Folder.File(InName);
	if (!std::filesystem::exists(Path))
	{
		const std::string Command = "ffmpeg -nostdin -v error -y " + InArguments + " " + Path;
		EXPECT_EQ(std::system(Command.c_str()), 0) << Command;
	}
	return Path;
}

std::string BlackVideo()
{
	return MakeVideo("black.mp4", "-f lavfi -i color=black:s=320x180:r=25 -f lavfi -i sine -t 2 -pix_fmt yuv420p "
								  "-c:v libx264 -preset ultrafast -c:a aac");
}

} // namespace Flitmark::Testing
