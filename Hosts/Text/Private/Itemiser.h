#pragma once

#include "Line.h"

namespace Flitmark
{

/** Fills a line's records, levels and runs from its characters. */
void Itemise(FFontSet& InFonts, FCharTable& InChars, FLine& InOutLine);

} // namespace Flitmark
