#pragma once

#include "Fonts/FontMeasure.h"

namespace Flitmark
{

/** Measures every text larger or smaller than its font says: the module then finds the lanes that such comments need. */
class FScaledMeasure final : public FSlateFontMeasure
{
public:
	/** InMeasure outlives this. InScale: factor on the fonts' sizes. */
	explicit FScaledMeasure(FSlateFontMeasure& InMeasure, double InScale = 1.0)
		: Inner(InMeasure)
		, Scale(static_cast<float>(InScale))
	{
	}

	void SetScale(double InScale) { Scale = static_cast<float>(InScale); }

	FVector2D Measure(const FString& InText, const FSlateFontInfo& InFont) override
	{
		FSlateFontInfo Font = InFont;
		Font.Size *= Scale;
		return Inner.Measure(InText, Font);
	}

private:
	FSlateFontMeasure& Inner;
	float Scale;
};

} // namespace Flitmark
