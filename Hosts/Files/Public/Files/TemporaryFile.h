#pragma once

#include "CoreTypes.h"

#include <memory>
#include <string>
#include <string_view>

namespace Flitmark
{

/** A file that gets its name when it is whole, and is gone otherwise. */
class FTemporaryFile
{
public:
	/** Beside the file it is to become; null with OutError set where it cannot be made. */
	static std::unique_ptr<FTemporaryFile> Create(const std::string& InFinalPath, std::string& OutError);
	~FTemporaryFile();
	FTemporaryFile(const FTemporaryFile&) = delete;
	FTemporaryFile& operator=(const FTemporaryFile&) = delete;

	const std::string& Path() const { return TemporaryPath; }

	/** Adds to the file; false with OutError set, such as for a full disk. */
	bool Write(std::string_view InBytes, std::string& OutError);

	/** Brings the file to the disk and under its name; false with OutError set. */
	bool Commit(std::string& OutError);

private:
	FTemporaryFile(std::string InFinalPath, std::string InTemporaryPath, int InHandle);

	std::string FinalPath;
	std::string TemporaryPath;
	int Handle;
	/** Bytes of which the disk was not told yet. */
	int64 NumWaiting = 0;
	bool bCommitted = false;
};

/** A file of that content under its name when it is whole, or the earlier file of that name; false with OutError set. */
bool WriteWholeFile(const std::string& InPath, std::string_view InBytes, std::string& OutError);

/**
 * What speaks against writing InOutput while InInput is read (it is the same file, its folder is missing, it is no
 * plain file); empty where nothing does.
 */
std::string OutputObstacle(const std::string& InInput, const std::string& InOutput);

} // namespace Flitmark
