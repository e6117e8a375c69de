#pragma once

#include "CoreTypes.h"
#include "Font.h"

#include <span>

namespace Flitmark
{

/** How HarfBuzz should interpret a run. */
struct FRunStyle
{
	hb_script_t Script = HB_SCRIPT_COMMON;

	/** Selects regional forms; null for the font's default. */
	hb_language_t Language = nullptr;
	bool bRightToLeft = false;
};

/**
 * Whether a script is laid out one character at a time, without kerning or ligatures: ideographs, kana, Hangul, and
 * what has no script are on a grid, and kerning made for proportional kana would only disturb it.
 */
bool IsSetPlain(const FFont& InFont, hb_script_t InScript);

/** Shapes InCount characters of a line, starting at InBegin, into the buffer; the rest of the line is context. */
void ShapeRun(hb_buffer_t* InBuffer, const FFont& InFont, const FRunStyle& InStyle, std::span<const uint32> InLine,
			  std::size_t InBegin, std::size_t InCount);

/** Sum of the advances in a shaped buffer, in TextMetrics::UnitsPerEm. */
int64 SumAdvances(hb_buffer_t* InBuffer);

/** The calling thread's own buffer, emptied; the next call on the thread returns the same one. */
hb_buffer_t* GetThreadBuffer();

} // namespace Flitmark
