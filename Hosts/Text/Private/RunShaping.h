#pragma once

#include "CoreTypes.h"
#include "Font.h"

#include <span>

namespace Flitmark
{

/** How HarfBuzz is to read a run. */
struct FRunStyle
{
	hb_script_t Script = HB_SCRIPT_COMMON;

	/** Chooses regional forms; null for the font's own. */
	hb_language_t Language = nullptr;
	bool bRightToLeft = false;
};

/**
 * Whether characters of a script are set one by one, without kerning or ligatures: ideographs, kana, Hangul and what
 * has no script stand on a grid, and kerning made for proportional kana would only disturb it.
 */
bool IsSetPlain(const FFont& InFont, hb_script_t InScript);

/** Shapes InCount characters of a line from InBegin on into the buffer; the rest of the line is their context. */
void ShapeRun(hb_buffer_t* InBuffer, const FFont& InFont, const FRunStyle& InStyle, std::span<const uint32> InLine,
			  std::size_t InBegin, std::size_t InCount);

/** Sum of the advances in a shaped buffer, in TextMetrics::UnitsPerEm. */
int64 SumAdvances(hb_buffer_t* InBuffer);

/** An empty buffer of the calling thread's own; the next call on the thread gives the same. */
hb_buffer_t* GetThreadBuffer();

} // namespace Flitmark
