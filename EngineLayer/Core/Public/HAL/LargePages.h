#pragma once

#include "CoreTypes.h"

#ifdef __linux__
#include <sys/mman.h>
#endif

/**
 * Asks for large pages for a large block of memory before it is written to; this saves most of the cost of getting
 * memory from the system. Only a hint: nothing but speed depends on it.
 */
inline void PreferLargePages([[maybe_unused]] void* Memory, [[maybe_unused]] std::size_t Size)
{
#ifdef __linux__
	constexpr std::size_t LargePage = 2 << 20;
	const std::size_t Address = reinterpret_cast<std::size_t>(Memory);
	const std::size_t Begin = (Address + LargePage - 1) / LargePage * LargePage;
	const std::size_t End = (Address + Size) / LargePage * LargePage;
	if (Begin < End)
	{
		madvise(reinterpret_cast<void*>(Begin), End - Begin, MADV_HUGEPAGE);
	}
#endif
}
