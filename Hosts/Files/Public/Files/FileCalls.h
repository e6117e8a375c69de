#pragma once

#include "CoreTypes.h"

#include <cstddef>
#include <sys/types.h>

namespace Flitmark
{

/**
 * The system calls that writing a file takes; results and errno are the system's. Virtual so that tests can make each
 * of them fail.
 */
class FFileCalls
{
public:
	virtual ~FFileCalls() = default;

	/** The system's own. */
	static FFileCalls& Get();

	virtual int Open(const char* InPath, int InFlags, uint32 InMode);
	virtual ssize_t Write(int InFile, const void* InBytes, std::size_t InSize);
	virtual int Flush(int InFile);
	virtual int Close(int InFile);
	/** Names an open file that has no name yet; fails where InTo exists. */
	virtual int Link(int InFile, const char* InTo);
	virtual int Rename(const char* InFrom, const char* InTo);
	virtual int Remove(const char* InPath);
};

} // namespace Flitmark
