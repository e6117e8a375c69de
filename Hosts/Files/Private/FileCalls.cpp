#include "Files/FileCalls.h"

#include <cstdio>
#include <fcntl.h>
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

int FFileCalls::Rename(const char* InFrom, const char* InTo)
{
	return std::rename(InFrom, InTo);
}

int FFileCalls::Remove(const char* InPath)
{
	return ::unlink(InPath);
}

} // namespace Flitmark
