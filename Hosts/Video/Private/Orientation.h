#pragma once

#include "CoreTypes.h"

#include <utility>

namespace Flitmark
{

/** A rectangle in whole pixels. */
struct FPixelRect
{
	int32 X = 0;
	int32 Y = 0;
	int32 Width = 0;
	int32 Height = 0;
};

/**
 * How the upright picture that players show relates to the stored one. A stored pixel (p, q) is mirrored according to
 * the flips (p to Width - 1 - p, q to Height - 1 - q), then its coordinates are swapped if bTranspose: that is its
 * upright position.
 */
struct FOrientation
{
	bool bTranspose = false;
	bool bFlipX = false;
	bool bFlipY = false;

	/** From FFmpeg's 3x3 display matrix (null: upright); other angles are rounded to the nearest quarter turn. */
	static FOrientation FromDisplayMatrix(const int32* InMatrix);

	/** The stored pixel of an upright one (InX, InY); size is the stored picture's. */
	std::pair<int32, int32> ToStored(int32 InX, int32 InY, int32 InWidth, int32 InHeight) const
	{
		const auto [P, Q] = bTranspose ? std::pair(InY, InX) : std::pair(InX, InY);
		return {bFlipX ? InWidth - 1 - P : P, bFlipY ? InHeight - 1 - Q : Q};
	}

	/** The upright pixel of a stored one; size is the stored picture's. */
	std::pair<int32, int32> ToUpright(int32 InP, int32 InQ, int32 InWidth, int32 InHeight) const
	{
		const int32 P = bFlipX ? InWidth - 1 - InP : InP;
		const int32 Q = bFlipY ? InHeight - 1 - InQ : InQ;
		return bTranspose ? std::pair(Q, P) : std::pair(P, Q);
	}

	/** The stored rectangle of an upright one. */
	FPixelRect ToStored(const FPixelRect& InRect, int32 InWidth, int32 InHeight) const;
};

} // namespace Flitmark
