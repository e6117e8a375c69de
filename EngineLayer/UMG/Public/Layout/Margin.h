#pragma once

#include "CoreTypes.h"

/** Room around a widget, in slate units. */
struct FMargin
{
	float Left = 0.f;
	float Top = 0.f;
	float Right = 0.f;
	float Bottom = 0.f;

	constexpr FMargin() = default;
	constexpr FMargin(float Uniform)
		: FMargin(Uniform, Uniform)
	{
	}
	constexpr FMargin(float Horizontal, float Vertical)
		: FMargin(Horizontal, Vertical, Horizontal, Vertical)
	{
	}
	constexpr FMargin(float InLeft, float InTop, float InRight, float InBottom)
		: Left(InLeft)
		, Top(InTop)
		, Right(InRight)
		, Bottom(InBottom)
	{
	}
	constexpr bool operator==(const FMargin&) const = default;
};
