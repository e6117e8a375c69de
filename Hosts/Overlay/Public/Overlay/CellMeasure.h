#pragma once

#include "Fonts/FontMeasure.h"

namespace Flitmark
{

/**
 * Measures texts without fonts, on a grid of half cells: the same on every machine, for traces. A wide code point (East
 * Asian Width W or F, flags' letters, pictographs) is 2 half cells of half an em, a combining mark none, any other 1; a
 * line is 1.2 em high; lines end at LF, CR LF or CR.
 */
class FCellMeasure final : public FSlateFontMeasure
{
public:
	FVector2D Measure(const FString& InText, const FSlateFontInfo& InFontInfo) override;
};

} // namespace Flitmark
