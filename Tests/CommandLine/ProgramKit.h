#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <sys/types.h>
#include <vector>

namespace Flitmark::Testing
{

/** A folder that is gone with the test. */
class FTestFolder
{
public:
	FTestFolder();
	~FTestFolder();
	FTestFolder(const FTestFolder&) = delete;
	FTestFolder& operator=(const FTestFolder&) = delete;

	std::string File(const std::string& InName) const { return (Path / InName).string(); }
	/** A file of that text; gives its path. */
	std::string Write(const std::string& InName, const std::string& InText) const;
	/** Sorted names of the files in it. */
	std::vector<std::string> List() const;

private:
	std::filesystem::path Path;
};

std::string ReadFile(const std::string& InPath);

/** How a program ended. */
struct FProgramResult
{
	/** Exit status; the negative number of the signal that killed it. */
	int ExitCode = 0;
	std::string Out;
	std::string Error;
	/** Most memory it had at once, in MiB. */
	long PeakMiB = 0;
};

/** The program under test, running. */
class FProgram
{
public:
	/** InOutput: where standard output goes, if not to the result. */
	explicit FProgram(const std::vector<std::string>& InArguments, const std::string& InOutput = {});
	~FProgram();
	FProgram(const FProgram&) = delete;
	FProgram& operator=(const FProgram&) = delete;

	void Send(int InSignal) const;
	/** Whether it has a file of that folder open, one without a name included. */
	bool HasOpen(const FTestFolder& InFolder) const;
	FProgramResult Wait();

private:
	FTestFolder Folder;
	pid_t Process = -1;
};

FProgramResult RunProgram(const std::vector<std::string>& InArguments, const std::string& InOutput = {});

/** A comment whose keys are all there, with InChange's keys in place of its own: R"("danmaku_mode":7)". */
std::string MakeComment(const std::string& InChange = {});
std::string MakeDocument(const std::vector<std::string>& InComments);

/** Made by the ffmpeg command once per program; the name's ending says the container. */
std::string MakeVideo(const std::string& InName, const std::string& InArguments);
/** Two seconds of black, 320 x 180, 25 frames per second, with sound. */
std::string BlackVideo();

} // namespace Flitmark::Testing
