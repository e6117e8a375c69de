#pragma once

#include <string>

namespace Flitmark
{

/**
 * The name of an unfinished file, for as long as this lives: where a signal ends the program in that time, its handler
 * removes the file.
 */
class FTemporaryName
{
public:
	explicit FTemporaryName(std::string InPath);
	~FTemporaryName();
	FTemporaryName(const FTemporaryName&) = delete;
	FTemporaryName& operator=(const FTemporaryName&) = delete;

	const std::string& GetPath() const { return Path; }

	/** Removes the files of all names. For signal handlers. */
	static void RemoveAll();

private:
	const std::string Path;
	/** Its place in the table; negative where there was none left. */
	int Place = -1;
};

} // namespace Flitmark
