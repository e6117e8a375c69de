#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <sys/types.h>
#include <vector>

namespace Flitmark::Testing
{

/** A folder that is removed with the test. */
class FTestFolder
{
public:
	FTestFolder();
	~FTestFolder();
	FTestFolder(const FTestFolder&) = delete;
	FTestFolder& operator=(const FTestFolder&) = delete;

	std::string File(const std::string& InName) const { return (Path / InName).string(); }
	/** Writes a file with this text; returns its path. */
	std::string Write(const std::string& InName, const std::string& InText) const;
	/** Sorted names of its files. */
	std::vector<std::string> List() const;

private:
	std::filesystem::path Path;
};

std::string ReadFile(const std::string& InPath);

/** How a program ended. */
struct FProgramResult
{
	/** Exit status, or the negated number of the signal that killed it. */
	int ExitCode = 0;
	std::string Out;
	std::string Error;
	/** Peak memory, in MiB. */
	long PeakMiB = 0;
};

/** The program under test, running. */
class FProgram
{
public:
	/** InOutput: where standard output goes instead of to the result. */
	explicit FProgram(const std::vector<std::string>& InArguments, const std::string& InOutput = {});
	~FProgram();
	FProgram(const FProgram&) = delete;
	FProgram& operator=(const FProgram&) = delete;

	void Send(int InSignal) const;
	/** Whether it has a file in that folder open, even one without a name. */
	bool HasOpen(const FTestFolder& InFolder) const;
	FProgramResult Wait();

private:
	FTestFolder Folder;
	pid_t Process = -1;
};

FProgramResult RunProgram(const std::vector<std::string>& InArguments, const std::string& InOutput = {});

/** A comment with every key, overridden by InChange's: R"("danmaku_mode":7)". */
std::string MakeComment(const std::string& InChange = {});
std::string MakeDocument(const std::vector<std::string>& InComments);

/** Made by ffmpeg once per program; the file extension selects the container. */
std::string MakeVideo(const std::string& InName, const std::string& InArguments);
/** Two seconds of black, 320 x 180, 25 frames per second, with sound. */
std::string BlackVideo();

} // namespace Flitmark::Testing
