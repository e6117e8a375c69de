#pragma once

#include "Line.h"

namespace Flitmark
{

/** Fills a line's records, levels and runs from its characters. */
void Itemize(FFontSet& InFonts, FCharTable& InChars, FLine& InOutLine);

} // namespace Flitmark
