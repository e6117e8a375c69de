#pragma once

#include "CoreMinimal.h"

#include <cstdlib>

/** Draws once from rand(): 0 to 1, both included, in steps of 1 / 32767. */
inline float DrawDanmakuFraction()
{
	// The reciprocal of the largest 15-bit number; a division would round some draws differently.
	constexpr float InverseRandMax = 1.f / 32767.f;
	return static_cast<float>(std::rand() & 0x7FFF) * InverseRandMax;
}
