#pragma once

#include <cstddef>
#include <cstdint>
#include <sys/types.h>

namespace Flitmark
{

/**
 * The calls by which save slots reach the disk, as the system has them: results and errno are its. A place of its own so
 * that tests can make each of them fail.
 */
class FFileCalls
{
public:
	virtual ~FFileCalls() = default;

	virtual int Open(const char* Path, int Flags, unsigned int Mode);
	virtual ssize_t Write(int File, const void* Bytes, std::size_t Size);
	virtual int Flush(int File);
	virtual int Close(int File);
	virtual int Rename(const char* From, const char* To);
	virtual int Remove(const char* Path);
};

} // namespace Flitmark
