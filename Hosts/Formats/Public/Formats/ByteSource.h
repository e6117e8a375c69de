#pragma once

#include "CoreTypes.h"

#include <cstddef>
#include <string>

namespace Flitmark
{

/** Where bytes come from, piece by piece. */
class IByteSource
{
public:
	IByteSource() = default;
	virtual ~IByteSource() = default;
	IByteSource(const IByteSource&) = delete;
	IByteSource& operator=(const IByteSource&) = delete;

	/**
	 * Writes up to InSize bytes to OutData and returns how many; 0 at the end and after an error. It may give fewer than
	 * asked for at any time.
	 */
	virtual std::size_t Read(char* OutData, std::size_t InSize) = 0;

	/** How many bytes there are in all; 0 where that is not known. Only a hint. */
	virtual uint64 GetSize() const { return 0; }

	/** Why reading stopped before the end; empty where it did not. */
	virtual std::string GetError() const { return {}; }
};

} // namespace Flitmark
