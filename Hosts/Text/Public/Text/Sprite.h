#pragma once

#include "CoreTypes.h"

#include <memory>
#include <vector>

namespace Flitmark
{

/** A rasterised comment: 8-bit RGBA with colour multiplied by alpha (sRGB values, no linear light), rows top down. */
struct FSprite
{
	/** Size in pixels; both 0 where there is nothing to be seen. */
	int32 Width = 0;
	int32 Height = 0;

	/**
	 * Where the sprite's top-left pixel lies from the comment's top-left corner, in pixels. Positive where the box has
	 * room around the ink, negative where ink reaches out of the measured box (accents, slanted letters).
	 */
	int32 Left = 0;
	int32 Top = 0;

	/** Part of the text is missing, because it passes FTextLimits. */
	bool bCut = false;

	/** Width x Height x 4 bytes. */
	std::vector<uint8> Pixels;
};

/** A sprite at its place in a picture. */
struct FPlacedSprite
{
	std::shared_ptr<const FSprite> Sprite;

	/** The comment's top-left corner in pixels of the upright picture; the sprite's Left and Top are added to it. */
	double X = 0.0;
	double Y = 0.0;

	/** From 0 (invisible) to 1. */
	double Opacity = 1.0;
};

} // namespace Flitmark
