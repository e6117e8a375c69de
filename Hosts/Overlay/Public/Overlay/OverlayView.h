#pragma once

#include "CoreMinimal.h"
#include "Text/TextEngine.h"

namespace Flitmark
{

/** How the canvas covers a picture. */
struct FOverlayView
{
	/** Canvas units; so high, the canvas makes comments look the same on every picture. */
	static constexpr double UsualHeight = 1080.0;

	/** The picture in canvas units; the overlay's own canvas may be lower or higher (FOverlaySettings::Area). */
	FVector2f CanvasSize = FVector2f::ZeroVector;
	/** Pixels per canvas unit. */
	FTextScale Scale;

	/**
	 * Lays a canvas of the given height over a whole picture; every host's pixels become canvas units here.
	 * InPixels: the picture's width and height. InPixelAspect: a pixel's width divided by its height. InHeight: canvas units.
	 */
	static FOverlayView Cover(FVector2D InPixels, double InPixelAspect = 1.0, double InHeight = UsualHeight)
	{
		const double Width = InPixels.X * InPixelAspect * InHeight / InPixels.Y;
		return {FVector2f(static_cast<float>(Width), static_cast<float>(InHeight)),
				{InPixels.X / Width, InPixels.Y / InHeight}};
	}
};

} // namespace Flitmark
