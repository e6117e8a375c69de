#pragma once

#include <cstdint>
#include <utility>

namespace Flitmark
{

/** A rectangle in whole pixels. */
struct FPixelRect
{
	int32_t X = 0;
	int32_t Y = 0;
	int32_t Width = 0;
	int32_t Height = 0;
};

/**
 * How the upright picture that players show lies in the stored one. A stored pixel (p, q) is mirrored as the flips say
 * (p to Width - 1 - p, q to Height - 1 - q), then its coordinates swap if bTranspose: that is its upright place.
 */
struct FOrientation
{
	bool bTranspose = false;
	bool bFlipX = false;
	bool bFlipY = false;

	/** From FFmpeg's 3x3 display matrix (null: upright); other angles than quarter turns go to the nearest. */
	static FOrientation FromDisplayMatrix(const int32_t* InMatrix);

	/** The stored pixel of an upright one (InX, InY); size is the stored picture's. */
	std::pair<int32_t, int32_t> ToStored(int32_t InX, int32_t InY, int32_t InWidth, int32_t InHeight) const
	{
		const auto [P, Q] = bTranspose ? std::pair(InY, InX) : std::pair(InX, InY);
		return {bFlipX ? InWidth - 1 - P : P, bFlipY ? InHeight - 1 - Q : Q};
	}

	/** The upright pixel of a stored one; size is the stored picture's. */
	std::pair<int32_t, int32_t> ToUpright(int32_t InP, int32_t InQ, int32_t InWidth, int32_t InHeight) const
	{
		const int32_t P = bFlipX ? InWidth - 1 - InP : InP;
		const int32_t Q = bFlipY ? InHeight - 1 - InQ : InQ;
		return bTranspose ? std::pair(Q, P) : std::pair(P, Q);
	}

	/** The stored rectangle of an upright one. */
	FPixelRect ToStored(const FPixelRect& InRect, int32_t InWidth, int32_t InHeight) const;
};

} // namespace Flitmark
