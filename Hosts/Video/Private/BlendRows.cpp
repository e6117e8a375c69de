#include "BlendRows.h"

#include <cstddef>
#include <cstring>

namespace Flitmark
{

namespace
{

template <typename SampleType>
using FVector [[gnu::vector_size(BlendBlock * sizeof(SampleType))]] = SampleType;

using FBytes = FVector<uint8>;
using FWords = FVector<uint16>;
using FDoubles = FVector<uint32>;

// Vector types of the compilers instead of plain loops: the blocks stay a few instructions without the checks for
// overlap and the prologues that would dominate spans as short as a letter's stroke. BlendSample says the arithmetic.
[[gnu::always_inline]] inline void BlendOneBlock(uint8* InVideo, const uint8* InKeep, const uint8* InColor, int32)
{
	FBytes Video;
	FBytes Keep;
	FBytes Color;
	std::memcpy(&Video, InVideo, sizeof(Video));
	std::memcpy(&Keep, InKeep, sizeof(Keep));
	std::memcpy(&Color, InColor, sizeof(Color));
	const FWords Product = __builtin_convertvector(Video, FWords) * __builtin_convertvector(Keep, FWords) + 128;
	const FWords Kept = (Product + (Product >> 8)) >> 8;
	Video = __builtin_convertvector(Kept, FBytes) + Color;
	std::memcpy(InVideo, &Video, sizeof(Video));
}

[[gnu::always_inline]] inline void BlendOneBlock(uint16* InVideo, const uint16* InKeep, const uint16* InColor,
												 int32 InShift)
{
	const uint16 Shift = static_cast<uint16>(InShift);
	FWords Video;
	FWords Keep;
	FWords Color;
	std::memcpy(&Video, InVideo, sizeof(Video));
	std::memcpy(&Keep, InKeep, sizeof(Keep));
	std::memcpy(&Color, InColor, sizeof(Color));
	const FDoubles Product =
		__builtin_convertvector((Video >> Shift) << 4, FDoubles) * __builtin_convertvector(Keep, FDoubles);
	const FWords Kept = __builtin_convertvector(Product >> 16, FWords);
	Video = (((Kept + 8) >> 4) + Color) << Shift;
	std::memcpy(InVideo, &Video, sizeof(Video));
}

template <typename SampleType>
[[gnu::always_inline]] inline void BlendRow(SampleType* InVideo, const SampleType* InKeep, const SampleType* InColor,
											int32 InCount, int32 InShift)
{
	int32 Done = 0;
	for (; Done + BlendBlock <= InCount; Done += BlendBlock)
	{
		BlendOneBlock(InVideo + Done, InKeep + Done, InColor + Done, InShift);
	}
	if (Done < InCount)
	{
		const size_t Bytes = static_cast<size_t>(InCount - Done) * sizeof(SampleType);
		SampleType Rest[3][BlendBlock] = {};
		std::memcpy(Rest[0], InVideo + Done, Bytes);
		std::memcpy(Rest[1], InKeep + Done, Bytes);
		std::memcpy(Rest[2], InColor + Done, Bytes);
		BlendOneBlock(Rest[0], Rest[1], Rest[2], InShift);
		std::memcpy(InVideo + Done, Rest[0], Bytes);
	}
}

template <typename SampleType>
void BlendRowPlain(SampleType* InVideo, const SampleType* InKeep, const SampleType* InColor, int32 InCount,
				   int32 InShift)
{
	BlendRow(InVideo, InKeep, InColor, InCount, InShift);
}

#if defined(__x86_64__)
template <typename SampleType>
[[gnu::target("avx2")]] void BlendRowAvx2(SampleType* InVideo, const SampleType* InKeep, const SampleType* InColor,
										  int32 InCount, int32 InShift)
{
	BlendRow(InVideo, InKeep, InColor, InCount, InShift);
}
#endif

} // namespace

template <typename SampleType>
FBlendRow<SampleType> FastestBlendRow()
{
#if defined(__x86_64__)
	if (__builtin_cpu_supports("avx2"))
	{
		return &BlendRowAvx2<SampleType>;
	}
#endif
	return &BlendRowPlain<SampleType>;
}

template <typename SampleType>
FBlendRow<SampleType> PlainBlendRow()
{
	return &BlendRowPlain<SampleType>;
}

template FBlendRow<uint8> FastestBlendRow<uint8>();
template FBlendRow<uint16> FastestBlendRow<uint16>();
template FBlendRow<uint8> PlainBlendRow<uint8>();
template FBlendRow<uint16> PlainBlendRow<uint16>();

} // namespace Flitmark
