#pragma once

#include "CoreTypes.h"

namespace Flitmark
{

/** Samples per kernel step; rows of sprite planes are padded to a multiple of it. */
inline constexpr int32 BlendBlock = 16;

/**
 * Blends one sample over another: the video's, scaled by InKeep, plus the comment's, already multiplied by its
 * alpha. 8 bits: InKeep is 255 - alpha, exactly rounded. 9 to 12 bits: InKeep is 65535 - alpha * 257.
 */
inline uint8 BlendSample(uint8 InVideo, uint8 InKeep, uint8 InColor)
{
	const uint16 Product = static_cast<uint16>(InVideo * InKeep + 128);
	const uint16 Kept = static_cast<uint16>(static_cast<uint16>(Product + (Product >> 8)) >> 8);
	return static_cast<uint8>(Kept + InColor);
}

inline uint16 BlendSample(uint16 InVideo, uint16 InKeep, uint16 InColor)
{
	// Four fraction bits: enough that keeping all of a 12-bit sample gives the sample back.
	const uint16 Kept = static_cast<uint16>((static_cast<uint32>(InVideo << 4) * InKeep) >> 16);
	return static_cast<uint16>(((Kept + 8) >> 4) + InColor);
}

/** The kernels for one sample size. InCount samples are blended; InShift: unused low bits of the video's samples. */
template <typename SampleType>
using FBlendRow = void (*)(SampleType* InVideo, const SampleType* InKeep, const SampleType* InColor, int32 InCount,
						   int32 InShift);

/** The fastest kernel for this processor. */
template <typename SampleType>
FBlendRow<SampleType> FastestBlendRow();

/** The portable kernel; produces the same samples. */
template <typename SampleType>
FBlendRow<SampleType> PlainBlendRow();

} // namespace Flitmark
