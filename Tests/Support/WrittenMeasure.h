#pragma once

#include "Fonts/FontMeasure.h"

namespace Flitmark
{

/**
 * Measures a text by the size written at its start: "200x30 hello" is 200 units wide and 30 high, whatever the font.
 * Any other text has no size.
 */
class FWrittenMeasure final : public FSlateFontMeasure
{
public:
	FVector2D Measure(const FString& Text, const FSlateFontInfo& FontInfo) override;

	/** How often it was called. */
	int32 NumCalls = 0;
};

} // namespace Flitmark
