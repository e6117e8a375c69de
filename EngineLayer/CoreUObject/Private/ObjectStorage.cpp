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
/** Bytes to take from the system at a time for blocks of one size. */
constexpr std::size_t SlabSize = 64 * 1024;
/**
 * Larger objects are rare and come straight from the system. Under the address sanitizer all do, so that it sees any
 * use after free.
 */
constexpr std::size_t LargestKept = OBJECT_STORAGE_KEEPS_BLOCKS ? 2048 : 0;

struct FFreeBlock
{
	FFreeBlock* Next;
};

/** Free blocks by size in cache lines. Like class records, slabs live until the process ends. */
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
	// In reverse, so that they are handed out in memory order.
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
