#pragma once

#include "Line.h"

#include <string_view>
#include <vector>

namespace Flitmark
{

/** A glyph on its line: pen position from the line's left end, y upwards from the baseline, TextMetrics::UnitsPerEm. */
struct FShapedGlyph
{
	std::uint32_t Glyph = 0;
	FFontId Font = FFontSet::Primary;
	std::int32_t Line = 0;
	std::int64_t X = 0;
	std::int64_t Y = 0;
};

/** What a text's box comes from, at any size. */
struct FTextExtent
{
	/** In TextMetrics::UnitsPerEm. */
	std::int64_t LongestAdvance = 0;
	std::int32_t Lines = 0;

	/** More lines than FTextLimits::MaxLines. */
	bool bCut = false;
};

/** Sets texts that LimitText has shortened. Safe to call from several threads. */
class FShaper
{
public:
	explicit FShaper(FFontSet& InFonts)
		: Fonts(InFonts)
		, Chars(InFonts)
	{
	}

	FTextExtent Measure(std::u16string_view InText);

	/** Measures likewise, and adds the text's glyphs to OutGlyphs, line by line, from left to right. */
	FTextExtent Shape(std::u16string_view InText, std::vector<FShapedGlyph>& OutGlyphs);

private:
	template <typename SetLineType>
	FTextExtent SetLines(std::u16string_view InText, SetLineType InSetLine);

	std::int64_t MeasureRun(const FLine& InLine, const FRun& InRun);
	void ShapeRunOf(const FLine& InLine, const FRun& InRun);

	FFontSet& Fonts;
	FCharTable Chars;
};

} // namespace Flitmark
