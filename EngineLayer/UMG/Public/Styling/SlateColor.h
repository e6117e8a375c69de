#pragma once

#include "CoreMinimal.h"

/** A color in a widget's style; always a fixed one, never one inherited from the style. */
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
