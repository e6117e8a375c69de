#include "Stage/SaveSlots.h"

#include "Stage/Files.h"
#include "Kismet/GameplayStatics.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <unistd.h>

namespace Flitmark
{

namespace
{

FFileCalls& GetSystemCalls()
{
	static FFileCalls Calls;
	return Calls;
}

TArray<uint8> ToArray(const std::string& Bytes)
{
	TArray<uint8> Data;
	Data.SetNum(static_cast<int32>(Bytes.size()));
	std::ranges::copy(Bytes, Data.begin());
	return Data;
}

/** The class of a record; null for bytes that are none. */
const UClass* GetRecordClass(const TArray<uint8>& Data)
{
	const USaveGame* Record = UGameplayStatics::LoadGameFromMemory(Data);
	return Record != nullptr ? Record->GetClass() : nullptr;
}

/** Name characters that are the same in every file system; others become "_". */
std::string ToFileName(const TCHAR* Name)
{
	std::string Result = ToUtf8(FString(Name));
	for (char& Character : Result)
	{
		const bool bPlain = (Character >= '0' && Character <= '9') || (Character >= 'A' && Character <= 'Z') ||
							(Character >= 'a' && Character <= 'z') || Character == '-' || Character == '_';
		Character = bPlain ? Character : '_';
	}
	return Result;
}

} // namespace

int FFileCalls::Open(const char* Path, int Flags, unsigned int Mode)
{
	return ::open(Path, Flags, Mode);
}

ssize_t FFileCalls::Write(int File, const void* Bytes, std::size_t Size)
{
	return ::write(File, Bytes, Size);
}

int FFileCalls::Flush(int File)
{
	return ::fsync(File);
}

int FFileCalls::Close(int File)
{
	return ::close(File);
}

int FFileCalls::Rename(const char* From, const char* To)
{
	return std::rename(From, To);
}

int FFileCalls::Remove(const char* Path)
{
	return ::unlink(Path);
}

FSaveSlots::FSaveSlots(std::filesystem::path InFolder, FFileCalls* InCalls)
	: Folder(std::move(InFolder))
	, Calls(InCalls != nullptr ? *InCalls : GetSystemCalls())
{
}

std::filesystem::path FSaveSlots::GetUserFolder()
{
	// A relative path there is to be ignored.
	if (const char* Data = std::getenv("XDG_DATA_HOME"); Data != nullptr && Data[0] == '/')
	{
		return std::filesystem::path(Data) / "flitmark";
	}
	const char* Home = std::getenv("HOME");
	return std::filesystem::path(Home != nullptr ? Home : "/") / ".local/share/flitmark";
}

std::filesystem::path FSaveSlots::GetFile(const TCHAR* Name, int32 UserIndex) const
{
	return Folder / (ToFileName(Name) + "." + std::to_string(UserIndex) + ".sav");
}

bool FSaveSlots::DoesSaveGameExist(const TCHAR* Name, const int32 UserIndex)
{
	std::error_code Ignored;
	return std::filesystem::exists(GetFile(Name, UserIndex), Ignored);
}

bool FSaveSlots::LoadGame(const TCHAR* Name, const int32 UserIndex, TArray<uint8>& Data)
{
	std::string Error;
	const std::optional<std::string> Bytes = LoadBytes(GetFile(Name, UserIndex), Error);
	if (!Bytes)
	{
		return false;
	}
	Data = ToArray(*Bytes);
	return true;
}

bool FSaveSlots::SaveGame(const TCHAR* Name, const int32 UserIndex, const TArray<uint8>& Data)
{
	LastError.clear();
	const std::filesystem::path File = GetFile(Name, UserIndex);
	std::error_code Error;
	std::filesystem::create_directories(Folder, Error);
	if (Error)
	{
		LastError = Folder.string() + ": cannot be made: " + Error.message();
		return false;
	}
	return KeepAside(File, Data) && WriteDurably(File, Data);
}

bool FSaveSlots::KeepAside(const std::filesystem::path& File, const TArray<uint8>& NewData)
{
	std::error_code Ignored;
	if (!std::filesystem::exists(std::filesystem::symlink_status(File, Ignored)))
	{
		return true;
	}
	std::string Unread;
	const std::optional<std::string> Old = LoadBytes(File, Unread);
	const UClass* OldClass = Old ? GetRecordClass(ToArray(*Old)) : nullptr;
	if (OldClass != nullptr && OldClass == GetRecordClass(NewData))
	{
		return true;
	}
	for (int Number = 1;; ++Number)
	{
		std::filesystem::path Aside = File;
		Aside += ".kept-" + std::to_string(Number);
		if (!std::filesystem::exists(std::filesystem::symlink_status(Aside, Ignored)))
		{
			return Calls.Rename(File.c_str(), Aside.c_str()) == 0 || Fail("cannot be kept aside", File);
		}
	}
}

bool FSaveSlots::WriteDurably(const std::filesystem::path& File, const TArray<uint8>& Data)
{
	// Of one process's own: two that save at once must not write into the same file.
	std::filesystem::path Temporary = File;
	Temporary += "." + std::to_string(::getpid()) + ".new";
	const int Handle = Calls.Open(Temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
	if (Handle < 0)
	{
		return Fail("cannot be made", Temporary);
	}
	bool bWritten = WriteAll(Handle, Data) || Fail("cannot be written", Temporary);
	bWritten = bWritten && (Calls.Flush(Handle) == 0 || Fail("cannot be flushed", Temporary));
	const bool bClosed = Calls.Close(Handle) == 0 || Fail("cannot be closed", Temporary);
	if (!bWritten || !bClosed ||
		(Calls.Rename(Temporary.c_str(), File.c_str()) != 0 && !Fail("cannot be put in place", File)))
	{
		Calls.Remove(Temporary.c_str());
		return false;
	}
	return FlushFolder();
}

bool FSaveSlots::WriteAll(int File, const TArray<uint8>& Data)
{
	std::size_t Written = 0;
	const std::size_t Size = static_cast<std::size_t>(Data.Num());
	while (Written < Size)
	{
		const ssize_t Count = Calls.Write(File, Data.GetData() + Written, Size - Written);
		if (Count < 0 && errno != EINTR)
		{
			return false;
		}
		Written += Count > 0 ? static_cast<std::size_t>(Count) : 0;
	}
	return true;
}

bool FSaveSlots::FlushFolder()
{
	const int Handle = Calls.Open(Folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
	if (Handle < 0)
	{
		return Fail("cannot be opened", Folder);
	}
	const bool bFlushed = Calls.Flush(Handle) == 0 || Fail("cannot be flushed", Folder);
	return (Calls.Close(Handle) == 0 || Fail("cannot be closed", Folder)) && bFlushed;
}

bool FSaveSlots::Fail(const std::string& What, const std::filesystem::path& File)
{
	LastError = File.string() + ": " + What + ": " + std::strerror(errno);
	return false;
}

} // namespace Flitmark
