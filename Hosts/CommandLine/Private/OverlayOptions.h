#pragma once

#include "Overlay/OverlaySettings.h"
#include "Overlay/OverlayView.h"
#include "Overlay/TextMeasure.h"

#include <memory>
#include <optional>
#include <string>

namespace CLI
{
class App;
}

namespace Flitmark
{

/** The options of every command that runs the overlay: how the viewer wants the comments. */
struct FOverlayArguments
{
	FOverlaySettings Settings;

	/** Canvas units per pixel of the picture's height; the usual canvas without it. */
	std::optional<double> Scale;
	uint32 Seed = 1;

	/** InPixels: the picture's width and height. InPixelAspect: a pixel's width divided by its height. */
	FOverlayView Cover(FVector2D InPixels, double InPixelAspect = 1.0) const;
};

/** Which of the options a command takes, besides --area, --speed and --font-scale. */
struct FOverlayOptionSet
{
	/** --offset */
	bool bOffset = true;
	/** --font, --bold */
	bool bFont = true;
	/** --scale */
	bool bScale = true;
	/** --outline, --opacity, --seed */
	bool bPicture = true;
};

void AddOverlayOptions(CLI::App& InCommand, FOverlayArguments& InOutArguments, const FOverlayOptionSet& InSet = {});

/** The fonts that were asked for, with a note on standard error if others are used; null with OutError set for none. */
std::unique_ptr<FTextMeasure> MakeMeasure(const FTextOptions& InOptions, std::string& OutError);

} // namespace Flitmark
