#include "Files/TemporaryFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace Flitmark
{

namespace
{

std::string FolderOf(const std::string& InPath)
{
	const std::string Folder = std::filesystem::path(InPath).parent_path().string();
	return Folder.empty() ? "." : Folder;
}

std::string SystemError()
{
	return std::strerror(errno);
}

} // namespace

std::unique_ptr<FTemporaryFile> FTemporaryFile::Create(const std::string& InFinalPath, std::string& OutError)
{
	constexpr int MostTries = 100;
	for (int Try = 0; Try < MostTries; ++Try)
	{
		const std::string Path = InFinalPath + "." + std::to_string(getpid()) + "-" + std::to_string(Try) + ".part";
		const int Handle = open(Path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
		if (Handle >= 0)
		{
			return std::unique_ptr<FTemporaryFile>(new FTemporaryFile(InFinalPath, Path, Handle));
		}
		if (errno != EEXIST)
		{
			break;
		}
	}
	OutError = InFinalPath + ": cannot be written: " + SystemError();
	return nullptr;
}

FTemporaryFile::FTemporaryFile(std::string InFinalPath, std::string InTemporaryPath, int InHandle)
	: FinalPath(std::move(InFinalPath))
	, TemporaryPath(std::move(InTemporaryPath))
	, Handle(InHandle)
{
}

FTemporaryFile::~FTemporaryFile()
{
	close(Handle);
	if (!bCommitted)
	{
		unlink(TemporaryPath.c_str());
	}
}

bool FTemporaryFile::Write(std::string_view InBytes, std::string& OutError)
{
	while (!InBytes.empty())
	{
		const ssize_t Written = write(Handle, InBytes.data(), InBytes.size());
		if (Written < 0 && errno != EINTR)
		{
			OutError = FinalPath + ": cannot be written: " + SystemError();
			return false;
		}
		InBytes.remove_prefix(Written > 0 ? static_cast<std::size_t>(Written) : 0);
		NumWaiting += Written > 0 ? Written : 0;
	}
	constexpr int64 Enough = int64{4} << 20;
	if (NumWaiting >= Enough)
	{
		// The disk begins at once, so that there is little to wait for at the end. Its errors are told then, too.
		sync_file_range(Handle, 0, 0, SYNC_FILE_RANGE_WRITE);
		NumWaiting = 0;
	}
	return true;
}

bool FTemporaryFile::Commit(std::string& OutError)
{
	if (fsync(Handle) != 0 || rename(TemporaryPath.c_str(), FinalPath.c_str()) != 0)
	{
		OutError = FinalPath + ": cannot be finished: " + SystemError();
		return false;
	}
	bCommitted = true;
	// The new name must outlive a power cut too; where folders cannot be synced, it is as good as it gets.
	const int Folder = open(FolderOf(FinalPath).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
	if (Folder >= 0)
	{
		fsync(Folder);
		close(Folder);
	}
	return true;
}

bool WriteWholeFile(const std::string& InPath, std::string_view InBytes, std::string& OutError)
{
	const std::unique_ptr<FTemporaryFile> File = FTemporaryFile::Create(InPath, OutError);
	return File && File->Write(InBytes, OutError) && File->Commit(OutError);
}

std::string OutputObstacle(const std::string& InInput, const std::string& InOutput)
{
	if (InOutput.empty())
	{
		return "no output file is named";
	}
	struct stat Folder = {};
	if (stat(FolderOf(InOutput).c_str(), &Folder) != 0 || !S_ISDIR(Folder.st_mode))
	{
		return InOutput + ": its folder " + FolderOf(InOutput) + " does not exist; make it first";
	}
	struct stat Input = {};
	struct stat Output = {};
	if (stat(InOutput.c_str(), &Output) != 0)
	{
		return {};
	}
	if (!S_ISREG(Output.st_mode))
	{
		return InOutput + ": is no plain file and will not be replaced; name another output";
	}
	if (stat(InInput.c_str(), &Input) == 0 && Input.st_dev == Output.st_dev && Input.st_ino == Output.st_ino)
	{
		return InOutput + ": is the input itself; name another output";
	}
	return {};
}

} // namespace Flitmark
