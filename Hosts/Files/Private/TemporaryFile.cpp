#include "Files/TemporaryFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
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

constexpr int MostTries = 100;
constexpr std::string_view Ending = ".part";

std::string NameOf(const std::string& InFinalPath, int InTry)
{
	return InFinalPath + "." + std::to_string(getpid()) + "-" + std::to_string(InTry) + std::string(Ending);
}

/** Whether NameOf could have made it for a file of which only the name is given. */
bool IsTemporaryName(std::string_view InName, std::string_view InFinalName)
{
	if (!InName.starts_with(InFinalName) || !InName.ends_with(Ending) ||
		InName.size() <= InFinalName.size() + 1 + Ending.size() || InName[InFinalName.size()] != '.')
	{
		return false;
	}
	InName.remove_prefix(InFinalName.size() + 1);
	InName.remove_suffix(Ending.size());
	return InName.find_first_not_of("0123456789-") == std::string_view::npos;
}

/** The owner locks its file for as long as it has it open, which ends with its process at the latest. */
bool Lock(int InFile)
{
	return flock(InFile, LOCK_EX | LOCK_NB) == 0;
}

void RemoveIfLeft(const std::string& InPath)
{
	const int File = open(InPath.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
	struct stat Status = {};
	if (File >= 0 && fstat(File, &Status) == 0 && S_ISREG(Status.st_mode) && Status.st_uid == geteuid() && Lock(File))
	{
		unlink(InPath.c_str());
	}
	if (File >= 0)
	{
		close(File);
	}
}

/** What killed programs left of the same file. */
void RemoveLeftovers(const std::string& InFinalPath)
{
	const std::string FinalName = std::filesystem::path(InFinalPath).filename().string();
	std::error_code Error;
	for (std::filesystem::directory_iterator Entry(FolderOf(InFinalPath), Error), End; !Error && Entry != End;
		 Entry.increment(Error))
	{
		if (IsTemporaryName(Entry->path().filename().string(), FinalName))
		{
			RemoveIfLeft(Entry->path().string());
		}
	}
}

std::string OpenedPath(int InFile)
{
	return "/proc/self/fd/" + std::to_string(InFile);
}

/** A file without a name, which can get one later; negative, with errno of the last try, where there is none. */
int OpenNameless(const std::string& InFinalPath, FFileCalls& InCalls)
{
	if (access("/proc/self/fd", X_OK) != 0)
	{
		errno = EOPNOTSUPP;
		return -1;
	}
	return InCalls.Open(FolderOf(InFinalPath).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
}

/** Whether the system or its file system has no files without names, rather than a fault. */
bool LacksNameless(int InError)
{
	return InError == EOPNOTSUPP || InError == EISDIR || InError == EINVAL || InError == ENOENT;
}

} // namespace

std::unique_ptr<FTemporaryFile> FTemporaryFile::Create(const std::string& InFinalPath, std::string& OutError,
													   FFileCalls& InCalls)
{
	RemoveLeftovers(InFinalPath);
	int Handle = OpenNameless(InFinalPath, InCalls);
	if (Handle >= 0)
	{
		return std::unique_ptr<FTemporaryFile>(new FTemporaryFile(InFinalPath, Handle, InCalls));
	}
	for (int Try = 0; Try < MostTries && (Try > 0 || LacksNameless(errno)); ++Try)
	{
		const std::string Path = NameOf(InFinalPath, Try);
		Handle = InCalls.Open(Path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
		if (Handle >= 0)
		{
			Lock(Handle);
			std::unique_ptr<FTemporaryFile> File(new FTemporaryFile(InFinalPath, Handle, InCalls));
			File->Name.emplace(Path);
			return File;
		}
		if (errno != EEXIST)
		{
			break;
		}
	}
	OutError = InFinalPath + ": cannot be written: " + std::strerror(errno);
	return nullptr;
}

FTemporaryFile::FTemporaryFile(std::string InFinalPath, int InHandle, FFileCalls& InCalls)
	: FinalPath(std::move(InFinalPath))
	, Calls(InCalls)
	, Handle(InHandle)
{
}

FTemporaryFile::~FTemporaryFile()
{
	Unlink();
	Close();
}

std::string FTemporaryFile::Path() const
{
	// The file that is open, even where another one has taken its name since.
	const std::string Opened = OpenedPath(Handle);
	return !Name || access(Opened.c_str(), F_OK) == 0 ? Opened : Name->GetPath();
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
	if (Calls.Flush(Handle) != 0 || !Link() || Calls.Rename(Name->GetPath().c_str(), FinalPath.c_str()) != 0)
	{
		return Fail(OutError);
	}
	Name.reset();
	// Not before, since that ends the lock.
	const bool bClosed = Close();
	return (bClosed && FlushFolder()) || Fail(OutError);
}

/** Gives the file a name that it can be renamed from: a new link would not replace what has the final one. */
bool FTemporaryFile::Link()
{
	if (!Name)
	{
		Lock(Handle);
	}
	for (int Try = 0; !Name && Try < MostTries; ++Try)
	{
		Name.emplace(NameOf(FinalPath, Try));
		if (Calls.Link(Handle, Name->GetPath().c_str()) != 0)
		{
			const int Error = errno;
			Name.reset();
			errno = Error;
			if (Error != EEXIST)
			{
				break;
			}
		}
	}
	return Name.has_value();
}

void FTemporaryFile::Unlink()
{
	if (Name)
	{
		Calls.Remove(Name->GetPath().c_str());
		Name.reset();
	}
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
