#pragma once

#include "CoreMinimal.h"

/** A colour of a widget's style: a fixed one, none that the style would give. */
struct FSlateColor
{
	FSlateColor() = default;
	FSlateColor(const FLinearColor& InColor)
		: Color(InColor)
	{
	}

	FLinearColor GetSpecifiedColor() const { return Color; }

private:
	FLinearColor Color{1.f, 1.f, 1.f, 1.f};
};
