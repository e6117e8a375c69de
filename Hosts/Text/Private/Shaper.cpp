#include "Shaper.h"

#include "Itemizer.h"
#include "TextLanguages.h"
#include "RunShaping.h"
#include "Text/TextLimits.h"
#include "TextLines.h"
#include "TextMetrics.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

void AddGlyphs(hb_buffer_t* InBuffer, const FRun& InRun, int32 InLine, int64& InOutPen,
			   std::vector<FShapedGlyph>& OutGlyphs)
{
	unsigned Count = 0;
	const hb_glyph_info_t* Infos = hb_buffer_get_glyph_infos(InBuffer, &Count);
	const hb_glyph_position_t* Positions = hb_buffer_get_glyph_positions(InBuffer, &Count);
	for (unsigned Index = 0; Index < Count; ++Index)
	{
		const hb_glyph_position_t& Position = Positions[Index];
		OutGlyphs.push_back(
			{Infos[Index].codepoint, InRun.Font, InLine, InOutPen + Position.x_offset, Position.y_offset});
		InOutPen += Position.x_advance;
	}
}

/** A line's pieces; the runs are brought into reading order. */
FTextRow MakeRow(FFontSet& InFonts, FLine& InOutLine)
{
	FTextRow Row;
	Row.bBidi = !InOutLine.Levels.empty();
	std::ranges::sort(InOutLine.Runs, {}, &FRun::Begin);
	for (const FRun& Run : InOutLine.Runs)
	{
		const FFont& Font = InFonts.Get(Run.Font);
		if (Row.Pieces.empty() || Row.Pieces.back().Face != &Font.GetFace())
		{
			Row.Pieces.push_back({{}, &Font.GetFace(), Font.IsColor()});
		}
		const auto First = InOutLine.Points.begin() + static_cast<std::ptrdiff_t>(Run.Begin);
		Row.Pieces.back().Text.append(First, First + static_cast<std::ptrdiff_t>(Run.Count));
	}
	return Row;
}

} // namespace

template <typename SetLineType>
FTextExtent FShaper::SetLines(std::u16string_view InText, SetLineType InSetLine)
{
	thread_local FLine Line;
	FTextExtent Extent;
	FTextLines Lines(InText);
	Line.Language = GuessHanLanguage(InText);
	while (Lines.Next(Line.Points))
	{
		if (Extent.Lines == FTextLimits::MaxLines)
		{
			Extent.bCut = true;
			break;
		}
		Itemize(Fonts, Chars, Line);
		Extent.LongestAdvance = std::max(Extent.LongestAdvance, InSetLine(Line, Extent.Lines));
		++Extent.Lines;
	}
	return Extent;
}

FTextExtent FShaper::Measure(std::u16string_view InText)
{
	return SetLines(InText,
					[this](const FLine& InLine, int32)
					{
						int64 Advance = 0;
						for (const FRun& Run : InLine.Runs)
						{
							Advance += MeasureRun(InLine, Run);
						}
						return Advance;
					});
}

FTextExtent FShaper::Shape(std::u16string_view InText, std::vector<FShapedGlyph>& OutGlyphs)
{
	return SetLines(InText,
					[this, &OutGlyphs](const FLine& InLine, int32 InNumber)
					{
						int64 Pen = 0;
						for (const FRun& Run : InLine.Runs)
						{
							ShapeRunOf(InLine, Run);
							AddGlyphs(GetThreadBuffer(), Run, InNumber, Pen, OutGlyphs);
						}
						return Pen;
					});
}

std::vector<FTextRow> FShaper::Split(std::u16string_view InText)
{
	std::vector<FTextRow> Rows;
	SetLines(InText,
			 [this, &Rows](FLine& InOutLine, int32 InNumber)
			 {
				 FTextRow& Row = Rows.emplace_back(MakeRow(Fonts, InOutLine));
				 Row.Left = TextMetrics::Outline;
				 Row.Baseline = TextMetrics::LineHeight * InNumber + TextMetrics::Baseline;
				 return int64{0};
			 });
	return Rows;
}

int64 FShaper::MeasureRun(const FLine& InLine, const FRun& InRun)
{
	// Simple characters are on a grid: their advances add up to exactly what shaping the run gives.
	if (InRun.bSimple)
	{
		int64 Advance = 0;
		for (std::size_t Index = InRun.Begin; Index < InRun.Begin + InRun.Count; ++Index)
		{
			Advance += InLine.Infos[Index].Advance;
		}
		return Advance;
	}
	ShapeRunOf(InLine, InRun);
	return SumAdvances(GetThreadBuffer());
}

void FShaper::ShapeRunOf(const FLine& InLine, const FRun& InRun)
{
	const FRunStyle Style = {FCharTable::GetScript(InRun.Script), InLine.Language, (InRun.Level & 1) != 0};
	ShapeRun(GetThreadBuffer(), Fonts.Get(InRun.Font), Style, InLine.Points, InRun.Begin, InRun.Count);
}

} // namespace Flitmark
