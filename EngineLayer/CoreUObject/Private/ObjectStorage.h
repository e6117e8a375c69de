#pragma once

#include <cstddef>

/**
 * Storage for objects. Comments come and go by the thousand, all of a few sizes, so freed blocks are kept and handed out
 * again: a dense second then asks the system for nothing. Game thread.
 */
class FObjectStorage
{
public:
	/** Zeroed, and aligned to a cache line. */
	static void* Allocate(std::size_t Size);
	/** Size: as it was allocated with. */
	static void Free(void* Block, std::size_t Size);
};
