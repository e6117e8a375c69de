#pragma once

/** A rectangle on the screen, in slate units. */
class FSlateRect
{
public:
	FSlateRect(float InLeft, float InTop, float InRight, float InBottom)
		: Left(InLeft)
		, Top(InTop)
		, Right(InRight)
		, Bottom(InBottom)
	{
	}

	float Left;
	float Top;
	float Right;
	float Bottom;
};
