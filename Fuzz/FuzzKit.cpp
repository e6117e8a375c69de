#include "FuzzKit.h"

#include <sanitizer/allocator_interface.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>

namespace Flitmark
{

namespace
{

std::atomic<bool> bWatches{false};
std::atomic<int64> Used{0};
std::atomic<int64> Peak{0};

void OnAllocated(const volatile void*, std::size_t InSize)
{
	if (bWatches)
	{
		const int64 Now = Used += static_cast<int64>(InSize);
		int64 Known = Peak;
		while (Now > Known && !Peak.compare_exchange_weak(Known, Now))
		{
		}
	}
}

void OnFreed(const volatile void* InMemory)
{
	if (bWatches && InMemory != nullptr)
	{
		Used -= static_cast<int64>(__sanitizer_get_allocated_size(const_cast<const void*>(InMemory)));
	}
}

} // namespace

void Require(bool bInHolds, const char* InWhat)
{
	if (!bInHolds)
	{
		std::fprintf(stderr, "does not hold: %s\n", InWhat);
		std::abort();
	}
}

FHeapWatch::FHeapWatch()
{
	[[maybe_unused]] static const int Installed = __sanitizer_install_malloc_and_free_hooks(&OnAllocated, &OnFreed);
	Used = 0;
	Peak = 0;
	bWatches = true;
}

FHeapWatch::~FHeapWatch()
{
	bWatches = false;
}

int64 FHeapWatch::GetPeak() const
{
	return Peak;
}

} // namespace Flitmark
