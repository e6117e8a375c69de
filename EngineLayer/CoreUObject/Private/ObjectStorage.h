#pragma once

#include <cstddef>

/**
 * Storage for objects. Comments come and go by the thousand, in only a few sizes, so freed blocks are kept and reused:
 * a crowded second then needs nothing from the system. Game thread.
 */
class FObjectStorage
{
public:
	/** Zeroed, and aligned to a cache line. */
	static void* Allocate(std::size_t Size);
	/** Size: the size it was allocated with. */
	static void Free(void* Block, std::size_t Size);
};
