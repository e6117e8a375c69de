#pragma once

#include "CoreTypes.h"

#include <cmath>
#include <limits>

/** Arithmetic helpers. Conversions to integers clamp to the type's range and return 0 for NaN. */
struct FMath
{
	template <typename T>
	static constexpr T Min(const T A, const T B)
	{
		return A <= B ? A : B;
	}

	template <typename T>
	static constexpr T Max(const T A, const T B)
	{
		return A >= B ? A : B;
	}

	template <typename T>
	static constexpr T Clamp(const T X, const T MinValue, const T MaxValue)
	{
		return Max(Min(X, MaxValue), MinValue);
	}

	template <typename T>
	static constexpr T Abs(const T A)
	{
		return A < T(0) ? -A : A;
	}

	static bool IsFinite(float A) { return std::isfinite(A); }
	static bool IsFinite(double A) { return std::isfinite(A); }

	static double FloorToDouble(double F) { return std::floor(F); }
	static float FloorToFloat(float F) { return std::floor(F); }
	static double CeilToDouble(double F) { return std::ceil(F); }
	static float CeilToFloat(float F) { return std::ceil(F); }

	static int32 TruncToInt32(double F) { return ToInteger<int32>(F); }
	static int32 FloorToInt32(double F) { return ToInteger<int32>(std::floor(F)); }
	static int32 CeilToInt32(double F) { return ToInteger<int32>(std::ceil(F)); }
	/** Nearest integer, halves rounded up. */
	static int32 RoundToInt32(double F) { return ToInteger<int32>(std::floor(F + 0.5)); }
	static int64 TruncToInt64(double F) { return ToInteger<int64>(F); }
	static int64 FloorToInt64(double F) { return ToInteger<int64>(std::floor(F)); }

private:
	template <typename IntegerType>
	static IntegerType ToInteger(double F)
	{
		// -Min is a power of two, so a double can hold it; it may be unable to hold Max.
		constexpr double Low = static_cast<double>(std::numeric_limits<IntegerType>::min());
		if (F >= Low && F < -Low)
		{
			return static_cast<IntegerType>(F);
		}
		return std::isnan(F) ? IntegerType(0)
			   : F < 0		 ? std::numeric_limits<IntegerType>::min()
							 : std::numeric_limits<IntegerType>::max();
	}
};
