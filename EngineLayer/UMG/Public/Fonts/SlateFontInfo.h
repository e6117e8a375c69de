#pragma once

#include "CoreMinimal.h"

/** The outline of a font's letters. */
struct FFontOutlineSettings
{
	/** Slate units; 0: none. */
	int32 OutlineSize = 0;
	FLinearColor OutlineColor{0.f, 0.f, 0.f, 1.f};
};

/** How a text is set. */
struct FSlateFontInfo
{
	/** Family name in the host's text stack; empty: the host's default. */
	FName TypefaceFontName;
	/** Points at 96 DPI: 24 is 32 slate units to the em. */
	float Size = 24.f;
	FFontOutlineSettings OutlineSettings;
};
