#pragma once

#include "CoreTypes.h"
#include "Files/FileCalls.h"
#include "Files/TemporaryNames.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace Flitmark
{

/**
 * A file that gets its name only once it is complete and on disk: a crash or a full disk at any point leaves what was
 * under that name before, or the new file. Without Commit it is removed.
 *
 * Until then it has no name at all, where the file system can do that, so that it goes with its program however that ends.
 * Elsewhere it has the name NAME.PROCESS-NUMBER.part and a lock, and whoever writes NAME next removes what nobody locks.
 */
class FTemporaryFile
{
public:
	/** In the folder of the file it is to become; null with OutError set where it cannot be created. */
	static std::unique_ptr<FTemporaryFile> Create(const std::string& InFinalPath, std::string& OutError,
												  FFileCalls& InCalls = FFileCalls::Get());
	~FTemporaryFile();
	FTemporaryFile(const FTemporaryFile&) = delete;
	FTemporaryFile& operator=(const FTemporaryFile&) = delete;

	/** A name by which this process, and no other, opens the file. */
	std::string Path() const;

	/** Appends; false with OutError set, such as for a full disk. */
	bool Write(std::string_view InBytes, std::string& OutError);

	/**
	 * Flushes the file to disk and gives it its name; false with OutError set. Where only closing it or flushing the folder
	 * failed the new file is in place, but a power cut could still bring the old one back.
	 */
	bool Commit(std::string& OutError);

private:
	FTemporaryFile(std::string InFinalPath, int InHandle, FFileCalls& InCalls);
	bool Close();
	bool Link();
	void Unlink();
	bool FlushFolder();
	bool Fail(std::string& OutError) const;

	const std::string FinalPath;
	FFileCalls& Calls;
	int Handle;
	/** Empty while the file has no name. */
	std::optional<FTemporaryName> Name;
	/** Bytes since the disk was last told to start writing. */
	int64 NumWaiting = 0;
};

/** Replaces a file in one step with FTemporaryFile; false with OutError set. */
bool WriteWholeFile(const std::string& InPath, std::string_view InBytes, std::string& OutError,
					FFileCalls& InCalls = FFileCalls::Get());

/**
 * Why InOutput cannot be written while InInput is read (it is the same file, its folder is missing, it is not a plain
 * file); empty where nothing is in the way.
 */
std::string OutputObstacle(const std::string& InInput, const std::string& InOutput);

} // namespace Flitmark
