#include "Files/SaveSlots.h"

#include "Files/ByteSource.h"
#include "Files/FileText.h"
#include "Files/TemporaryFile.h"
#include "Kismet/GameplayStatics.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <optional>

namespace Flitmark
{

namespace
{

TArray<uint8> ToArray(const std::string& InBytes)
{
	TArray<uint8> Data;
	Data.SetNum(static_cast<int32>(InBytes.size()));
	std::ranges::copy(InBytes, Data.begin());
	return Data;
}

/** The class of a record; null for bytes that are not one. */
const UClass* GetRecordClass(const TArray<uint8>& InData)
{
	const USaveGame* Record = UGameplayStatics::LoadGameFromMemory(InData);
	return Record != nullptr ? Record->GetClass() : nullptr;
}

/** Keeps characters that mean the same in every file system; others become "_". */
std::string ToFileName(const TCHAR* InName)
{
	std::string Result = ToUtf8(FString(InName));
	for (char& Character : Result)
	{
		const bool bPlain = (Character >= '0' && Character <= '9') || (Character >= 'A' && Character <= 'Z') ||
							(Character >= 'a' && Character <= 'z') || Character == '-' || Character == '_';
		Character = bPlain ? Character : '_';
	}
	return Result;
}

/** Far more than any record takes, and little enough to read and keep at once. */
constexpr std::size_t MaxRecordSize = std::size_t{1} << 20;

/** What a slot holds; empty where it cannot be a record: too large, unreadable, or no plain file. */
std::optional<std::string> ReadRecord(const std::filesystem::path& InFile)
{
	std::error_code Ignored;
	if (!std::filesystem::is_regular_file(InFile, Ignored))
	{
		return std::nullopt;
	}
	std::string Error;
	const std::unique_ptr<FFileSource> Source = FFileSource::Open(InFile, Error);
	if (!Source || Source->GetSize() > MaxRecordSize)
	{
		return std::nullopt;
	}
	std::string Bytes = Source->ReadUpTo(MaxRecordSize);
	return Source->GetError().empty() ? std::optional(std::move(Bytes)) : std::nullopt;
}

bool Exists(const std::filesystem::path& InFile)
{
	std::error_code Ignored;
	return std::filesystem::exists(std::filesystem::symlink_status(InFile, Ignored));
}

} // namespace

FSaveSlots::FSaveSlots(std::filesystem::path InFolder, FFileCalls& InCalls)
	: Folder(std::move(InFolder))
	, Calls(InCalls)
{
}

std::filesystem::path FSaveSlots::GetUserFolder()
{
	// The variable must hold an absolute path; anything else is to be ignored.
	if (const char* Data = std::getenv("XDG_DATA_HOME"); Data != nullptr && Data[0] == '/')
	{
		return std::filesystem::path(Data) / "flitmark";
	}
	const char* Home = std::getenv("HOME");
	return std::filesystem::path(Home != nullptr ? Home : "/") / ".local/share/flitmark";
}

std::filesystem::path FSaveSlots::GetFile(const TCHAR* InName, int32 InUserIndex) const
{
	return Folder / (ToFileName(InName) + "." + std::to_string(InUserIndex) + ".sav");
}

bool FSaveSlots::DoesSaveGameExist(const TCHAR* InName, const int32 InUserIndex)
{
	std::error_code Ignored;
	return std::filesystem::exists(GetFile(InName, InUserIndex), Ignored);
}

bool FSaveSlots::LoadGame(const TCHAR* InName, const int32 InUserIndex, TArray<uint8>& OutData)
{
	const std::optional<std::string> Bytes = ReadRecord(GetFile(InName, InUserIndex));
	if (!Bytes)
	{
		return false;
	}
	OutData = ToArray(*Bytes);
	return true;
}

bool FSaveSlots::SaveGame(const TCHAR* InName, const int32 InUserIndex, const TArray<uint8>& InData)
{
	LastError.clear();
	const std::filesystem::path File = GetFile(InName, InUserIndex);
	std::error_code Error;
	std::filesystem::create_directories(Folder, Error);
	if (Error)
	{
		LastError = Folder.string() + ": cannot be created: " + Error.message();
		return false;
	}
	const std::string_view Bytes(reinterpret_cast<const char*>(InData.GetData()),
								 static_cast<std::size_t>(InData.Num()));
	return KeepAside(File, InData) && WriteWholeFile(File.string(), Bytes, LastError, Calls);
}

bool FSaveSlots::KeepAside(const std::filesystem::path& InFile, const TArray<uint8>& InNewData)
{
	if (!Exists(InFile))
	{
		return true;
	}
	const std::optional<std::string> Old = ReadRecord(InFile);
	const UClass* OldClass = Old ? GetRecordClass(ToArray(*Old)) : nullptr;
	if (OldClass != nullptr && OldClass == GetRecordClass(InNewData))
	{
		return true;
	}
	std::filesystem::path Aside;
	for (int Number = 1; Aside.empty() || Exists(Aside); ++Number)
	{
		Aside = InFile.string() + ".kept-" + std::to_string(Number);
	}
	if (Calls.Rename(InFile.c_str(), Aside.c_str()) != 0)
	{
		LastError = InFile.string() + ": cannot be moved out of the way: " + std::strerror(errno);
		return false;
	}
	return true;
}

} // namespace Flitmark
