#include "BlendRows.h"

#include <cstddef>
#include <cstring>

namespace Flitmark
{

namespace
{

template <typename SampleType>
using FVector [[gnu::vector_size(BlendBlock * sizeof(SampleType))]] = SampleType;

using FBytes = FVector<uint8_t>;
using FWords = FVector<uint16_t>;
using FDoubles = FVector<uint32_t>;

// Vector types of the compilers instead of plain loops: the blocks stay a few instructions without the checks for
// overlap and the prologues that would dominate spans as short as a letter's stroke. BlendSample says the arithmetic.
[[gnu::always_inline]] inline void BlendOneBlock(uint8_t* InVideo, const uint8_t* InKeep, const uint8_t* InColor,
												 int32_t)
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

[[gnu::always_inline]] inline void BlendOneBlock(uint16_t* InVideo, const uint16_t* InKeep, const uint16_t* InColor,
												 int32_t InShift)
{
	const uint16_t Shift = static_cast<uint16_t>(InShift);
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
											int32_t InCount, int32_t InShift)
{
	int32_t Done = 0;
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
void BlendRowPlain(SampleType* InVideo, const SampleType* InKeep, const SampleType* InColor, int32_t InCount,
				   int32_t InShift)
{
	BlendRow(InVideo, InKeep, InColor, InCount, InShift);
}

#if defined(__x86_64__)
template <typename SampleType>
[[gnu::target("avx2")]] void BlendRowAvx2(SampleType* InVideo, const SampleType* InKeep, const SampleType* InColor,
										  int32_t InCount, int32_t InShift)
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

template FBlendRow<uint8_t> FastestBlendRow<uint8_t>();
template FBlendRow<uint16_t> FastestBlendRow<uint16_t>();
template FBlendRow<uint8_t> PlainBlendRow<uint8_t>();
template FBlendRow<uint16_t> PlainBlendRow<uint16_t>();

} // namespace Flitmark
