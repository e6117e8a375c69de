#pragma once

#include "Fonts/SlateFontInfo.h"

/** Measures texts for the widgets: all that the layer needs of a host's text stack. */
class ENGINELAYER_API FSlateFontMeasure
{
public:
	virtual ~FSlateFontMeasure() = default;

	/** Width and height of the text's box in slate units. */
	virtual FVector2D Measure(const FString& Text, const FSlateFontInfo& FontInfo) = 0;

	/** Installs a host's service, or removes it if null; without one texts have no size. */
	static void Install(FSlateFontMeasure* InService);
	static FSlateFontMeasure* Get();
};
