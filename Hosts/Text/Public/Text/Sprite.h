#pragma once

#include "CoreTypes.h"

#include <memory>
#include <vector>

namespace Flitmark
{

/** A rasterized comment: 8-bit RGBA, premultiplied (sRGB values, not linear light), rows top to bottom. */
struct FSprite
{
	/** Size in pixels; both 0 if nothing is visible. */
	int32 Width = 0;
	int32 Height = 0;

	/**
	 * Offset of the sprite's top-left pixel from the comment's top-left corner, in pixels. Positive if the box has
	 * room around the ink, negative if ink extends outside the measured box (accents, slanted letters).
	 */
	int32 Left = 0;
	int32 Top = 0;

	/** Part of the text is missing because it exceeds FTextLimits. */
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
