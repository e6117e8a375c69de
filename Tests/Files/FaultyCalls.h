#pragma once

#include "Files/FileCalls.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <utility>

namespace Flitmark
{

/** System calls of which one fails, or all from one on; they write in small pieces. */
class FFaultyCalls final : public FFileCalls
{
public:
	enum class EFault
	{
		None,
		/** Only that call fails. */
		Once,
		/** That call and all later ones fail, as after a crash. */
		ForGood,
	};

	int Open(const char* InPath, int InFlags, uint32 InMode) override
	{
		if (bNamesAll && (InFlags & O_TMPFILE) == O_TMPFILE)
		{
			errno = EOPNOTSUPP;
			return -1;
		}
		return Fails() ? -1 : FFileCalls::Open(InPath, InFlags, InMode);
	}
	ssize_t Write(int InFile, const void* InBytes, std::size_t InSize) override
	{
		if (bInterrupts && !std::exchange(bInterrupted, !bInterrupted))
		{
			errno = EINTR;
			return -1;
		}
		// A disk that fills up still takes the first part.
		const bool bFails = Fails();
		const ssize_t Written = FFileCalls::Write(InFile, InBytes, std::min<std::size_t>(InSize, 7));
		return bFails ? Refuse() : Written;
	}
	int Flush(int InFile) override { return Fails() ? -1 : FFileCalls::Flush(InFile); }
	int Close(int InFile) override
	{
		// A file is closed whatever close() returns.
		const int Result = FFileCalls::Close(InFile);
		return Fails() ? -1 : Result;
	}
	int Link(int InFile, const char* InTo) override { return Fails() ? -1 : FFileCalls::Link(InFile, InTo); }
	int Rename(const char* InFrom, const char* InTo) override
	{
		return Fails() ? -1 : FFileCalls::Rename(InFrom, InTo);
	}
	int Remove(const char* InPath) override { return Fails() ? -1 : FFileCalls::Remove(InPath); }

	void Reset(int32 InFaulty = 0, EFault InFault = EFault::None, int InError = ENOSPC)
	{
		NumCalls = 0;
		Faulty = InFaulty;
		Fault = InFault;
		Error = InError;
	}

	int32 NumCalls = 0;
	bool bInterrupts = false;
	/** As on a file system that does not support files without a name. */
	bool bNamesAll = false;

private:
	int Refuse() const
	{
		errno = Error;
		return -1;
	}
	bool Fails()
	{
		const int32 Call = NumCalls++;
		const bool bFails = (Fault == EFault::Once && Call == Faulty) || (Fault == EFault::ForGood && Call >= Faulty);
		return bFails && Refuse() != 0;
	}

	int32 Faulty = 0;
	EFault Fault = EFault::None;
	int Error = ENOSPC;
	bool bInterrupted = false;
};

} // namespace Flitmark
