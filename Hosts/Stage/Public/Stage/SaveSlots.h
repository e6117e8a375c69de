#pragma once

#include "Stage/FileCalls.h"
#include "SaveGameSystem.h"

#include <filesystem>
#include <string>

namespace Flitmark
{

/**
 * Save slots on disk, one file a slot and user. A save is atomic and durable: a crash or a full disk at any point leaves
 * the old record or the new. A file that is no record of the class that takes its place is kept aside under another
 * name.
 */
class FSaveSlots final : public ISaveGameSystem
{
public:
	/** InFolder: made when first written to. InCalls: the system's where null; outlives the slots. */
	explicit FSaveSlots(std::filesystem::path InFolder, FFileCalls* InCalls = nullptr);

	/** Where this user's slots belong: $XDG_DATA_HOME/flitmark, or ~/.local/share/flitmark. */
	static std::filesystem::path GetUserFolder();

	bool DoesSaveGameExist(const TCHAR* Name, const int32 UserIndex) override;
	bool SaveGame(const TCHAR* Name, const int32 UserIndex, const TArray<uint8>& Data) override;
	bool LoadGame(const TCHAR* Name, const int32 UserIndex, TArray<uint8>& Data) override;

	/** What went wrong in the last save; empty where nothing did. The module is silent about it, a host need not be. */
	const std::string& GetLastError() const { return LastError; }

private:
	std::filesystem::path GetFile(const TCHAR* Name, int32 UserIndex) const;
	bool KeepAside(const std::filesystem::path& File, const TArray<uint8>& NewData);
	bool WriteDurably(const std::filesystem::path& File, const TArray<uint8>& Data);
	bool WriteAll(int File, const TArray<uint8>& Data);
	bool FlushFolder();
	bool Fail(const std::string& What, const std::filesystem::path& File);

	std::filesystem::path Folder;
	FFileCalls& Calls;
	std::string LastError;
};

} // namespace Flitmark
