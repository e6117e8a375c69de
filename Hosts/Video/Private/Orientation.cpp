#include "Orientation.h"

#include <cstdlib>

namespace Flitmark
{

FOrientation FOrientation::FromDisplayMatrix(const int32* InMatrix)
{
	FOrientation Result;
	if (InMatrix == nullptr)
	{
		return Result;
	}
	// The matrix takes a stored (p, q) to (a p + c q, b p + d q), up to a shift.
	const int64 A = InMatrix[0];
	const int64 B = InMatrix[1];
	const int64 C = InMatrix[3];
	const int64 D = InMatrix[4];
	Result.bTranspose = std::llabs(B) + std::llabs(C) > std::llabs(A) + std::llabs(D);
	Result.bFlipX = (Result.bTranspose ? B : A) < 0;
	Result.bFlipY = (Result.bTranspose ? C : D) < 0;
	return Result;
}

FPixelRect FOrientation::ToStored(const FPixelRect& InRect, int32 InWidth, int32 InHeight) const
{
	FPixelRect Rect = InRect;
	if (bTranspose)
	{
		std::swap(Rect.X, Rect.Y);
		std::swap(Rect.Width, Rect.Height);
	}
	if (bFlipX)
	{
		Rect.X = InWidth - Rect.X - Rect.Width;
	}
	if (bFlipY)
	{
		Rect.Y = InHeight - Rect.Y - Rect.Height;
	}
	return Rect;
}

} // namespace Flitmark
