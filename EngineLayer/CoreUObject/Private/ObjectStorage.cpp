#include "ObjectStorage.h"

#include <array>
#include <cstdlib>
#include <cstring>

#if defined(__SANITIZE_ADDRESS__)
#define OBJECT_STORAGE_KEEPS_BLOCKS 0
#elif defined(__has_feature)
#define OBJECT_STORAGE_KEEPS_BLOCKS !__has_feature(address_sanitizer)
#else
#define OBJECT_STORAGE_KEEPS_BLOCKS 1
#endif

namespace
{

constexpr std::size_t CacheLine = 64;
/** Blocks of one size are taken from the system so many bytes at a time. */
constexpr std::size_t SlabSize = 64 * 1024;
/** Larger objects are rare: each is the system's. Under the address sanitizer all are, which then sees a late use. */
constexpr std::size_t LargestKept = OBJECT_STORAGE_KEEPS_BLOCKS ? 2048 : 0;

struct FFreeBlock
{
	FFreeBlock* Next;
};

/** Free blocks by size in cache lines. Slabs stay to the process's end, as the class records do. */
std::array<FFreeBlock*, LargestKept / CacheLine + 1> FreeBlocks{};

constexpr std::size_t CountLines(std::size_t Size)
{
	return (Size + CacheLine - 1) / CacheLine;
}

void* TakeFromSystem(std::size_t Size)
{
	void* Taken = std::aligned_alloc(CacheLine, CountLines(Size) * CacheLine);
	if (Taken == nullptr)
	{
		std::abort();
	}
	return Taken;
}

void Refill(std::size_t Lines)
{
	const std::size_t BlockSize = Lines * CacheLine;
	std::byte* Slab = static_cast<std::byte*>(TakeFromSystem(SlabSize));
	// The last first, so that they are handed out in the order in which they lie.
	for (std::size_t Index = SlabSize / BlockSize; Index-- > 0;)
	{
		FFreeBlock* Block = reinterpret_cast<FFreeBlock*>(Slab + Index * BlockSize);
		Block->Next = FreeBlocks[Lines];
		FreeBlocks[Lines] = Block;
	}
}

} // namespace

void* FObjectStorage::Allocate(std::size_t Size)
{
	if (Size > LargestKept)
	{
		return std::memset(TakeFromSystem(Size), 0, Size);
	}
	const std::size_t Lines = CountLines(Size);
	if (FreeBlocks[Lines] == nullptr)
	{
		Refill(Lines);
	}
	FFreeBlock* Block = FreeBlocks[Lines];
	FreeBlocks[Lines] = Block->Next;
	return std::memset(static_cast<void*>(Block), 0, Size);
}

void FObjectStorage::Free(void* Block, std::size_t Size)
{
	if (Size > LargestKept)
	{
		std::free(Block);
		return;
	}
	FFreeBlock* Freed = static_cast<FFreeBlock*>(Block);
	Freed->Next = FreeBlocks[CountLines(Size)];
	FreeBlocks[CountLines(Size)] = Freed;
}
