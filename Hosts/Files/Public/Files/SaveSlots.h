#pragma once

#include "Files/FileCalls.h"
#include "SaveGameSystem.h"

#include <filesystem>
#include <string>

namespace Flitmark
{

/**
 * Save slots on disk, one file per slot and user, written as FTemporaryFile writes: a crash or a full disk at any point
 * leaves the old record or the new one. A file in the way that is not a record of the same class is renamed, not
 * replaced.
 */
class FSaveSlots final : public ISaveGameSystem
{
public:
	/** InFolder: created by the first save. InCalls: outlives the slots. */
	explicit FSaveSlots(std::filesystem::path InFolder, FFileCalls& InCalls = FFileCalls::Get());

	/** Where this user's slots belong: $XDG_DATA_HOME/flitmark, or ~/.local/share/flitmark. */
	static std::filesystem::path GetUserFolder();

	bool DoesSaveGameExist(const TCHAR* InName, const int32 InUserIndex) override;
	bool SaveGame(const TCHAR* InName, const int32 InUserIndex, const TArray<uint8>& InData) override;
	bool LoadGame(const TCHAR* InName, const int32 InUserIndex, TArray<uint8>& OutData) override;

	/** What went wrong in the last save; empty where nothing did. The module is silent about it, a host need not be. */
	const std::string& GetLastError() const { return LastError; }

private:
	std::filesystem::path GetFile(const TCHAR* InName, int32 InUserIndex) const;
	bool KeepAside(const std::filesystem::path& InFile, const TArray<uint8>& InNewData);

	std::filesystem::path Folder;
	FFileCalls& Calls;
	std::string LastError;
};

} // namespace Flitmark
