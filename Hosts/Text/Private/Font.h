#pragma once

#include "CoreTypes.h"
#include "FontList.h"

#include <memory>
#include <mutex>

namespace Flitmark
{

/** A loaded font: one side shapes (immutable, any thread), the other draws (one thread at a time, under Lock). */
class FFont
{
public:
	/** What draws. FreeType's faces keep a current size, so whoever uses one holds Lock. */
	struct FDrawing
	{
		std::mutex Lock;
		FFtFacePtr Face;
		FFtStrokerPtr Stroker;

		/** What FT_Set_Char_Size was told last, in 1/64 pixel to the em; 0 where it must be told again. */
		FT_Pos CurrentEm = 0;
	};

	/** Null where the file is gone or broken. The library must outlive the font, and load one at a time. */
	static std::unique_ptr<FFont> Load(FT_Library InLibrary, const FFontFile& InFile);

	/** Scaled to TextMetrics::UnitsPerEm. */
	hb_font_t* GetShaping() const { return Shaping.get(); }
	FDrawing& GetDrawing() const { return *Drawing; }
	bool IsColor() const { return bColor; }

	/** Ems of this font to an em of text: 1 but for emoji fonts, whose glyphs are brought to EmojiAdvance. */
	double GetMagnification() const { return Magnification; }

	bool Covers(uint32 InPoint) const;

private:
	FFont() = default;
	void FitEmoji();

	FHbFontPtr Shaping;
	std::unique_ptr<FDrawing> Drawing;
	double Magnification = 1.0;
	bool bColor = false;
};

} // namespace Flitmark
