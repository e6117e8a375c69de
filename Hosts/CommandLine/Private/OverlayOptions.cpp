#include "OverlayOptions.h"

#include "Message.h"
#include "OptionValues.h"
#include "Values/OptionChecks.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cctype>

namespace Flitmark
{

namespace
{

constexpr const char* Group = "How the comments look and move";

/** Bounds of --scale: from a canvas of a few lanes on a small video to one of thousands on a large one. */
constexpr double MinScale = 0.01;
constexpr double MaxScale = 100.0;

/** Bounds of --area: the lowest has lanes for one or two scrolling comments, and none for bottom ones. */
constexpr double MinArea = 0.1;
constexpr double MaxArea = 1.0;

/** Bounds of --speed and --font-scale. */
constexpr double MinFactor = 0.1;
constexpr double MaxFactor = 10.0;

/** Bound of --outline: a quarter of an em, which leaves little of a letter's holes. */
constexpr double MaxOutline = 4.0;

/** Whether a family that was found answers what was asked for; a generic name stands for any family. */
bool IsFamily(const std::string& InAsked, const std::string& InFound)
{
	const auto Lower = [](std::string InText)
	{
		std::ranges::transform(InText, InText.begin(),
							   [](unsigned char InLetter) { return static_cast<char>(std::tolower(InLetter)); });
		return InText;
	};
	const std::string Asked = Lower(InAsked.substr(0, InAsked.find_first_of(":-,")));
	const auto Generic = {"", "sans", "sans-serif", "serif", "mono", "monospace", "system-ui", "cursive", "fantasy"};
	return std::ranges::find(Generic, Asked) != Generic.end() || Lower(InFound).starts_with(Asked);
}

void AddMotionOptions(CLI::App& InCommand, FOverlaySettings& InOutSettings, bool bInOffset)
{
	InCommand
		.add_option("--area", InOutSettings.Area,
					"Part of the picture's height for scrolling and top comments, from 0.1 to 1; bottom comments get a "
					"third of it")
		->check(MakeNumberCheck(MinArea, MaxArea))
		->capture_default_str()
		->group(Group);
	InCommand.add_option("--speed", InOutSettings.Speed, "How fast comments move and end; 2 is twice as fast as usual")
		->check(MakeNumberCheck(MinFactor, MaxFactor))
		->capture_default_str()
		->group(Group);
	InCommand.add_option("--font-scale", InOutSettings.FontScale, "Factor on the size of all comments")
		->check(MakeNumberCheck(MinFactor, MaxFactor))
		->capture_default_str()
		->group(Group);
	if (bInOffset)
	{
		InCommand
			.add_option_function<std::string>(
				"--offset",
				[&InOutSettings](const std::string& InText) { InOutSettings.Offset = *ParseOffset(InText); },
				"Show comments later by this time, or earlier with a minus sign, such as 1:30 or -0.5")
			->check(MakeCheck(&ParseOffset, OffsetRefusal))
			->type_name("TIME")
			->group(Group);
	}
}

void AddFontOptions(CLI::App& InCommand, FTextOptions& InOutOptions)
{
	InCommand
		.add_option("--font", InOutOptions.Family,
					"Font family, optionally with a style, as in \"Noto Sans:bold\" (default: the system's sans-serif)")
		->group(Group);
	InCommand.add_flag("--bold", InOutOptions.bBold, "Bold letters")->group(Group);
}

void AddScaleOption(CLI::App& InCommand, FOverlayArguments& InOutArguments)
{
	InCommand
		.add_option("--scale", InOutArguments.Scale,
					"Canvas units per video pixel; twice as many make comments half as large (default: a canvas 1080 "
					"units high, so that comments look the same on every video)")
		->check(MakeNumberCheck(MinScale, MaxScale))
		->group(Group);
}

void AddPictureOptions(CLI::App& InCommand, FOverlayArguments& InOutArguments)
{
	InCommand
		.add_option("--outline", InOutArguments.Settings.Text.Outline,
					"Width of the outline, from 0 (none) to 4; 1 is the usual one")
		->check(MakeNumberCheck(0.0, MaxOutline))
		->capture_default_str()
		->group(Group);
	InCommand.add_option("--opacity", InOutArguments.Settings.Opacity, "Opacity of the comments, from 0 to 1")
		->check(MakeNumberCheck(0.0, 1.0))
		->capture_default_str()
		->group(Group);
	InCommand
		.add_option("--seed", InOutArguments.Seed, "Seed of the comments' speeds; the same seed gives the same picture")
		->capture_default_str()
		->group(Group);
}

} // namespace

FOverlayView FOverlayArguments::Cover(FVector2D InPixels, double InPixelAspect) const
{
	return FOverlayView::Cover(InPixels, InPixelAspect, Scale ? InPixels.Y * *Scale : FOverlayView::UsualHeight);
}

void AddOverlayOptions(CLI::App& InCommand, FOverlayArguments& InOutArguments, const FOverlayOptionSet& InSet)
{
	AddMotionOptions(InCommand, InOutArguments.Settings, InSet.bOffset);
	if (InSet.bFont)
	{
		AddFontOptions(InCommand, InOutArguments.Settings.Text);
	}
	if (InSet.bScale)
	{
		AddScaleOption(InCommand, InOutArguments);
	}
	if (InSet.bPicture)
	{
		AddPictureOptions(InCommand, InOutArguments);
	}
}

std::unique_ptr<FTextMeasure> MakeMeasure(const FTextOptions& InOptions, std::string& OutError)
{
	std::unique_ptr<FTextMeasure> Measure = FTextMeasure::Create(InOptions, OutError);
	if (Measure && !IsFamily(InOptions.Family, Measure->GetEngine().PrimaryFamily()))
	{
		PrintNote("--font: no family \"" + InOptions.Family + "\" is installed, " +
				  Measure->GetEngine().PrimaryFamily() + " is used; \"fc-list : family\" lists them");
	}
	return Measure;
}

} // namespace Flitmark
