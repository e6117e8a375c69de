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

} // namespace

std::unique_ptr<FTemporaryFile> FTemporaryFile::Create(const std::string& InFinalPath, std::string& OutError,
													   FFileCalls& InCalls)
{
	constexpr int MostTries = 100;
	for (int Try = 0; Try < MostTries; ++Try)
	{
		const std::string Path = InFinalPath + "." + std::to_string(getpid()) + "-" + std::to_string(Try) + ".part";
		const int Handle = InCalls.Open(Path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
		if (Handle >= 0)
		{
			return std::unique_ptr<FTemporaryFile>(new FTemporaryFile(InFinalPath, Path, Handle, InCalls));
		}
		if (errno != EEXIST)
		{
			break;
		}
	}
	OutError = InFinalPath + ": cannot be written: " + std::strerror(errno);
	return nullptr;
}

FTemporaryFile::FTemporaryFile(std::string InFinalPath, std::string InTemporaryPath, int InHandle, FFileCalls& InCalls)
	: FinalPath(std::move(InFinalPath))
	, TemporaryPath(std::move(InTemporaryPath))
	, Calls(InCalls)
	, Handle(InHandle)
{
}

FTemporaryFile::~FTemporaryFile()
{
	Close();
	if (!bInPlace)
	{
		Calls.Remove(TemporaryPath.c_str());
	}
}

bool FTemporaryFile::Write(std::string_view InBytes, std::string& OutError)
{
	while (!InBytes.empty())
	{
		const ssize_t Written = Calls.Write(Handle, InBytes.data(), InBytes.size());
		if (Written < 0 && errno != EINTR)
		{
			return Fail(OutError);
		}
		InBytes.remove_prefix(Written > 0 ? static_cast<std::size_t>(Written) : 0);
		NumWaiting += Written > 0 ? Written : 0;
	}
	constexpr int64 Enough = int64{4} << 20;
	if (NumWaiting >= Enough)
	{
		// The disk starts now, so that Commit has little to wait for. Its errors show there, too.
		sync_file_range(Handle, 0, 0, SYNC_FILE_RANGE_WRITE);
		NumWaiting = 0;
	}
	return true;
}

bool FTemporaryFile::Commit(std::string& OutError)
{
	if (Calls.Flush(Handle) != 0 || !Close() || Calls.Rename(TemporaryPath.c_str(), FinalPath.c_str()) != 0)
	{
		return Fail(OutError);
	}
	bInPlace = true;
	return FlushFolder() || Fail(OutError);
}

/** Once: a file is closed even where closing it reports an error. */
bool FTemporaryFile::Close()
{
	const int Open = std::exchange(Handle, -1);
	return Open < 0 || Calls.Close(Open) == 0;
}

/** The new name must survive a power cut too. Folders that may not be read and disks that cannot flush one are let be. */
bool FTemporaryFile::FlushFolder()
{
	const int Folder = Calls.Open(FolderOf(FinalPath).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
	if (Folder < 0)
	{
		return errno == EACCES;
	}
	const bool bFlushed = Calls.Flush(Folder) == 0 || errno == EINVAL;
	const int FlushError = errno;
	const bool bClosed = Calls.Close(Folder) == 0;
	errno = bFlushed ? errno : FlushError;
	return bFlushed && bClosed;
}

bool FTemporaryFile::Fail(std::string& OutError) const
{
	OutError = FinalPath + ": cannot be written: " + std::strerror(errno);
	return false;
}

bool WriteWholeFile(const std::string& InPath, std::string_view InBytes, std::string& OutError, FFileCalls& InCalls)
{
	const std::unique_ptr<FTemporaryFile> File = FTemporaryFile::Create(InPath, OutError, InCalls);
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
		return InOutput + ": is not a plain file and is not replaced; name another output";
	}
	if (stat(InInput.c_str(), &Input) == 0 && Input.st_dev == Output.st_dev && Input.st_ino == Output.st_ino)
	{
		return InOutput + ": is the input itself; name another output";
	}
	return {};
}

} // namespace Flitmark
