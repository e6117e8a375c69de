#pragma once

#include "CoreTypes.h"
#include "Text/Sprite.h"
#include "Text/TextRows.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Flitmark
{

/** Size of a text's box in canvas units. */
struct FTextSize
{
	double Width = 0.0;
	double Height = 0.0;

	/** The text exceeds FTextLimits; the box is that of the painted part. */
	bool bCut = false;
};

/** Text settings, shared by all comments of a host. */
struct FTextOptions
{
	/**
	 * Preferred font family, or a fontconfig pattern ("Noto Sans:bold"); empty for the system's sans serif. An
	 * unknown family falls back to the system's sans serif; FTextEngine::PrimaryFamily says what was found.
	 */
	std::string Family = {};

	/** Bold faces, of every font that has one. */
	bool bBold = false;

	/** Factor on the width of the outline, 0 for none. Boxes stay as they are. */
	double Outline = 1.0;
};

/** A text color, 8-bit sRGB with alpha. */
struct FTextColor
{
	uint8 Red = 255;
	uint8 Green = 255;
	uint8 Blue = 255;
	uint8 Alpha = 255;
};

/** Pixels per canvas unit, horizontally and vertically (they differ if a video's pixels are not square). */
struct FTextScale
{
	double X = 1.0;
	double Y = 1.0;
};

/**
 * Shapes, measures, and rasterizes comment text. Measuring and rasterizing use the same shaped lines, so a
 * sprite exactly fills the measured box. Thread-safe; results depend only on the arguments, the
 * installed fonts, and the locale (which orders the fonts and selects the forms of ideographs), to the bit.
 *
 * Lines end at LF, CR LF, or CR, and are left-aligned. A line is 1.25 em high, its baseline 0.93 em below
 * its top: ideographs, and Latin from capitals to descenders, fit with their outline, which is usually 1/16 em wide
 * (one pixel at least). The box is as wide as the longest line's advance plus the outline on both sides.
 */
class FTextEngine
{
public:
	/** Null with OutError set if no font can be found. */
	static std::unique_ptr<FTextEngine> Create(const FTextOptions& InOptions, std::string& OutError);
	~FTextEngine();

	/**
	 * The box of a text in canvas units. InSizePoints: font size in points at 96 DPI (24 is 32 canvas units per em);
	 * zero, negative, or NaN gives an empty box. A text without advance (such as an empty one) has no width, but
	 * the height of its lines. A text measured before, at any size, only costs a lookup: measure ahead on a worker.
	 */
	FTextSize Measure(std::u16string_view InText, float InSizePoints);

	/**
	 * Draws a text with its outline: a dark one, or a light one around dark letters. InColor.Alpha scales everything,
	 * including outline and color emoji. See FTextLimits for what is not painted of an absurd text. The sprite is
	 * empty if nothing is visible or if size or scale is not positive.
	 */
	FSprite Rasterize(std::u16string_view InText, float InSizePoints, FTextColor InColor, FTextScale InScale);

	/**
	 * The lines of a text, as far as they are painted, for those who draw with other means: what Rasterize draws where.
	 */
	std::vector<FTextRow> Split(std::u16string_view InText);

	/** Canvas units per em; 0 for a size that is not positive. */
	static double GetEm(float InSizePoints);

	/** The width of the outline in canvas units, for a picture whose pixels are one unit large. */
	double GetOutlineWidth(float InSizePoints) const;

	/** The color of the outline around letters of a color, before their alpha is applied to it. */
	static FTextColor GetOutlineColor(FTextColor InColor);

	/** The preferred font. */
	const FFontFace& PrimaryFace() const;

	/** Family name of the preferred font. */
	const std::string& PrimaryFamily() const;

private:
	class FImpl;
	explicit FTextEngine(std::unique_ptr<FImpl> InImpl);
	std::unique_ptr<FImpl> Impl;
};

} // namespace Flitmark
