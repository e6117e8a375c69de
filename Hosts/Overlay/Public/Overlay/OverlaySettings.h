#pragma once

#include "CoreMinimal.h"
#include "Text/TextEngine.h"

#include <algorithm>

namespace Flitmark
{

/** How the viewer wants the comments: everything that a host may offer and the module does not know. */
struct FOverlaySettings
{
	/** Of the canvas that it is given, the module keeps this part of the height for scrolling comments. */
	static constexpr double UsualArea = 0.75;

	/** Factor on the comments' time; 1 is the module's own. */
	double Speed = 1.0;

	/** From 0 (invisible) to 1; for whoever draws the scene. */
	double Opacity = 1.0;

	/**
	 * The part of the picture's height that scrolling and top comments take, above 0 and up to 1; bottom comments take a
	 * third of it from below. A change holds for comments that start later.
	 */
	double Area = UsualArea;

	/** Factor on the size of every comment that starts. */
	double FontScale = 1.0;

	/** Ticks of 100 ns by which comments come later; earlier if negative. Counts from the next media time on. */
	int64 Offset = 0;

	/** Of which modes comments are drawn; the viewer's own are in any mode. The others keep their lanes. */
	bool bShowsScrolling = true;
	bool bShowsTop = true;
	bool bShowsBottom = true;

	/** For whoever makes the text engine; what exists does not change with it. */
	FTextOptions Text = {};

	/** The canvas on which the module's rules give that area of a picture of InPictureSize. Both in canvas units. */
	FVector2f GetStageSize(FVector2f InPictureSize) const
	{
		return FVector2f(InPictureSize.X, static_cast<float>(InPictureSize.Y * (Area / UsualArea)));
	}

	/** The time by which the module files comments, in ticks: before 0, where nothing is due, until the first comes. */
	int64 GetStageTime(int64 InMediaTicks) const
	{
		constexpr int64 BeforeAll = -ETimespan::TicksPerSecond;
		// Where the sum would overflow, no comment is due either.
		const int64 Ticks = std::min(InMediaTicks, MAX_int64 + std::min<int64>(Offset, 0));
		return Ticks >= Offset ? Ticks - Offset : BeforeAll;
	}
};

} // namespace Flitmark
