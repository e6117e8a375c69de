#pragma once

#include "AlphaLayout.h"
#include "Blender.h"

#include <memory>

namespace Flitmark
{

/** Everything that determines how a sprite is blended into a picture with alpha. */
struct FAlphaStyle
{
	FAlphaLayout Layout;

	/** Unused for RGB. */
	FColorMatrix Matrix;
	FOrientation Orientation;
};

/**
 * Blends into pictures with straight alpha, so that showing the result over something else is the same as showing the
 * picture over it and blending the comments into that. What was fully transparent gets a comment's own color and alpha.
 */
std::unique_ptr<IBlender> MakeAlphaBlender(const FAlphaStyle& InStyle);

} // namespace Flitmark
