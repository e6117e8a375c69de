#pragma once

#include "CoreTypes.h"
#include "FontList.h"
#include "Text/TextRows.h"

#include <memory>
#include <mutex>

namespace Flitmark
{

/** A loaded font: one half shapes (immutable, any thread), the other draws (one thread at a time, under Lock). */
class FFont
{
public:
	/** The drawing half. FreeType faces have a current size, so whoever uses one must hold Lock. */
	struct FDrawing
	{
		std::mutex Lock;
		FFtFacePtr Face;
		FFtStrokerPtr Stroker;

		/** The last argument of FT_Set_Char_Size, in 1/64 pixel per em; 0 if it must be set again. */
		FT_Pos CurrentEm = 0;
	};

	/** Null if the file is missing or damaged. The library must outlive the font and load one font at a time. */
	static std::unique_ptr<FFont> Load(FT_Library InLibrary, const FFontFile& InFile);

	/** Scaled to TextMetrics::UnitsPerEm. */
	hb_font_t* GetShaping() const { return Shaping.get(); }
	FDrawing& GetDrawing() const { return *Drawing; }
	bool IsColor() const { return bColor; }
	const FFontFace& GetFace() const { return TextFace; }

	/** Ems of this font per em of text: 1 except for emoji fonts, whose glyphs are scaled to EmojiAdvance. */
	double GetMagnification() const { return Magnification; }

	bool Covers(uint32 InPoint) const;

private:
	FFont() = default;
	void FitEmoji();

	FHbFontPtr Shaping;
	std::unique_ptr<FDrawing> Drawing;
	FFontFace TextFace;
	double Magnification = 1.0;
	bool bColor = false;
};

} // namespace Flitmark
