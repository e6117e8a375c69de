#pragma once

#include "CoreTypes.h"
#include "Text/Sprite.h"

#include <memory>
#include <string>
#include <string_view>

namespace Flitmark
{

/** Size of a text's box in canvas units. */
struct FTextSize
{
	double Width = 0.0;
	double Height = 0.0;

	/** The text passes FTextLimits; the box is that of the part which is painted. */
	bool bCut = false;
};

/** How comments are set; the same for every comment of a host. */
struct FTextOptions
{
	/**
	 * Font family asked for first, or a fontconfig pattern ("Noto Sans:bold"); empty: the system's sans-serif. An
	 * unknown family falls back to the system's sans-serif; FTextEngine::PrimaryFamily tells what was found.
	 */
	std::string Family;
};

/** A text's colour, 8-bit sRGB with alpha. */
struct FTextColor
{
	uint8 Red = 255;
	uint8 Green = 255;
	uint8 Blue = 255;
	uint8 Alpha = 255;
};

/** Pixels per canvas unit, horizontally and vertically (they differ where a video's pixels are not square). */
struct FTextScale
{
	double X = 1.0;
	double Y = 1.0;
};

/**
 * Shapes, measures and rasterises comment text. Measuring and rasterising go through the same shaped lines, so that a
 * sprite fills just the box that was measured. Safe to call from several threads; results depend on the arguments, the
 * installed fonts and the locale (it orders the fonts, and chooses the forms of ideographs) alone, to the bit.
 *
 * Lines end at LF, CR LF or CR, and every line starts at the left. A line is 1.25 em high, its baseline 0.93 em below
 * its top: ideographs, and Latin from capitals to descenders, lie in it with their outline, which is 1/16 em wide (one
 * pixel at the least). The box is as wide as the longest line's advance and the outline on both sides of it.
 */
class FTextEngine
{
public:
	/** Null with OutError set where no font can be found at all. */
	static std::unique_ptr<FTextEngine> Create(const FTextOptions& InOptions, std::string& OutError);
	~FTextEngine();

	/**
	 * The box of a text in canvas units. InSizePoints: font size in points at 96 DPI (24 is 32 canvas units to the em);
	 * zero, negative or no number gives a box without size. A text without advance (an empty one) has no width, but
	 * the height of its lines. A text measured before, at any size, costs a look-up: measure ahead on a worker.
	 */
	FTextSize Measure(std::u16string_view InText, float InSizePoints);

	/**
	 * Draws a text with its outline: a dark one, or a light one around dark letters. InColor.Alpha scales everything,
	 * outline and colour emoji too. Bounded: see FTextLimits for what is not painted of an absurd text. A sprite without
	 * size where nothing is to be seen, or where size or scale are not above zero.
	 */
	FSprite Rasterise(std::u16string_view InText, float InSizePoints, FTextColor InColor, FTextScale InScale);

	/** Family name of the font that is asked first for every character. */
	const std::string& PrimaryFamily() const;

private:
	class FImpl;
	explicit FTextEngine(std::unique_ptr<FImpl> InImpl);
	std::unique_ptr<FImpl> Impl;
};

} // namespace Flitmark
