#include "Files/FileCalls.h"

#include <cstdio>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace Flitmark
{

FFileCalls& FFileCalls::Get()
{
	static FFileCalls Calls;
	return Calls;
}

int FFileCalls::Open(const char* InPath, int InFlags, uint32 InMode)
{
	return ::open(InPath, InFlags, InMode);
}

ssize_t FFileCalls::Write(int InFile, const void* InBytes, std::size_t InSize)
{
	return ::write(InFile, InBytes, InSize);
}

int FFileCalls::Flush(int InFile)
{
	return ::fsync(InFile);
}

int FFileCalls::Close(int InFile)
{
	return ::close(InFile);
}

int FFileCalls::Link(int InFile, const char* InTo)
{
	const std::string Opened = "/proc/self/fd/" + std::to_string(InFile);
	return ::linkat(AT_FDCWD, Opened.c_str(), AT_FDCWD, InTo, AT_SYMLINK_FOLLOW);
}

int FFileCalls::Rename(const char* InFrom, const char* InTo)
{
	return std::rename(InFrom, InTo);
}

int FFileCalls::Remove(const char* InPath)
{
	return ::unlink(InPath);
}

} // namespace Flitmark
