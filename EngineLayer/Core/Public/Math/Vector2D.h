#pragma once

#include "CoreTypes.h"

namespace UE::Math
{
/** A point or an extent in the plane. */
template <typename T>
struct TVector2
{
	T X;
	T Y;

	static const TVector2 ZeroVector;

	/** Leaves the components unset. */
	TVector2() {}
	constexpr TVector2(T InX, T InY)
		: X(InX)
		, Y(InY)
	{
	}
	explicit constexpr TVector2(T InF)
		: X(InF)
		, Y(InF)
	{
	}
	template <typename OtherType>
	explicit constexpr TVector2(const TVector2<OtherType>& Other)
		: X(static_cast<T>(Other.X))
		, Y(static_cast<T>(Other.Y))
	{
	}

	constexpr bool operator==(const TVector2&) const = default;
	constexpr TVector2 operator+(const TVector2& V) const { return TVector2(X + V.X, Y + V.Y); }
	constexpr TVector2 operator-(const TVector2& V) const { return TVector2(X - V.X, Y - V.Y); }
	constexpr TVector2 operator*(const TVector2& V) const { return TVector2(X * V.X, Y * V.Y); }
	constexpr TVector2 operator*(T Scale) const { return TVector2(X * Scale, Y * Scale); }
	constexpr TVector2 operator/(T Scale) const { return TVector2(X / Scale, Y / Scale); }
	constexpr bool IsZero() const { return X == T(0) && Y == T(0); }
};

template <typename T>
inline constexpr TVector2<T> TVector2<T>::ZeroVector(T(0), T(0));
} // namespace UE::Math

using FVector2D = UE::Math::TVector2<double>;
using FVector2f = UE::Math::TVector2<float>;
