#pragma once

#include <cstdint>

namespace Flitmark
{

/** Samples that the kernels take at a time; rows of sprite planes are padded to a multiple of it. */
inline constexpr int32_t BlendBlock = 16;

/**
 * One sample over another: what is left of the video's (InKeep of it) plus the comment's, already multiplied by its
 * alpha. 8 bits: InKeep is 255 - alpha, exactly rounded. 9 to 12 bits: InKeep is 65535 - alpha * 257.
 */
inline uint8_t BlendSample(uint8_t InVideo, uint8_t InKeep, uint8_t InColor)
{
	const uint16_t Product = static_cast<uint16_t>(InVideo * InKeep + 128);
	const uint16_t Kept = static_cast<uint16_t>(static_cast<uint16_t>(Product + (Product >> 8)) >> 8);
	return static_cast<uint8_t>(Kept + InColor);
}

inline uint16_t BlendSample(uint16_t InVideo, uint16_t InKeep, uint16_t InColor)
{
	// Four fraction bits: enough that keeping all of a 12-bit sample gives the sample back.
	const uint16_t Kept = static_cast<uint16_t>((static_cast<uint32_t>(InVideo << 4) * InKeep) >> 16);
	return static_cast<uint16_t>(((Kept + 8) >> 4) + InColor);
}

/** The kernels for one sample size. InCount samples are blended; InShift: unused low bits of the video's samples. */
template <typename SampleType>
using FBlendRow = void (*)(SampleType* InVideo, const SampleType* InKeep, const SampleType* InColor, int32_t InCount,
						   int32_t InShift);

/** The fastest kernel for the processor that this runs on. */
template <typename SampleType>
FBlendRow<SampleType> FastestBlendRow();

/** The kernel that runs everywhere; gives the same samples. */
template <typename SampleType>
FBlendRow<SampleType> PlainBlendRow();

} // namespace Flitmark
