#pragma once

#include "CoreTypes.h"
#include "Line.h"
#include "Text/TextRows.h"

#include <string_view>
#include <vector>

namespace Flitmark
{

/** A glyph on its line: pen position from the line's left end, y up from the baseline, TextMetrics::UnitsPerEm. */
struct FShapedGlyph
{
	uint32 Glyph = 0;
	FFontId Font = FFontSet::Primary;
	int32 Line = 0;
	int64 X = 0;
	int64 Y = 0;
};

/** Metrics from which a text's box is computed at any size. */
struct FTextExtent
{
	/** In TextMetrics::UnitsPerEm. */
	int64 LongestAdvance = 0;
	int32 Lines = 0;

	/** More lines than FTextLimits::MaxLines. */
	bool bCut = false;
};

/** Lays out texts shortened by LimitText. Thread-safe. */
class FShaper
{
public:
	explicit FShaper(FFontSet& InFonts)
		: Fonts(InFonts)
		, Chars(InFonts)
	{
	}

	FTextExtent Measure(std::u16string_view InText);

	/** Also measures, and adds the text's glyphs to OutGlyphs, line by line, left to right. */
	FTextExtent Shape(std::u16string_view InText, std::vector<FShapedGlyph>& OutGlyphs);

	/** The lines' characters, with the font of each. */
	std::vector<FTextRow> Split(std::u16string_view InText);

private:
	template <typename SetLineType>
	FTextExtent SetLines(std::u16string_view InText, SetLineType InSetLine);

	int64 MeasureRun(const FLine& InLine, const FRun& InRun);
	void ShapeRunOf(const FLine& InLine, const FRun& InRun);

	FFontSet& Fonts;
	FCharTable Chars;
};

} // namespace Flitmark
