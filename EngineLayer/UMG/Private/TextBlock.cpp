#include "Components/TextBlock.h"

#include "Fonts/FontMeasure.h"
#include "UObject/GeneratedCppIncludes.h"

IMPLEMENT_LAYER_CLASS(UTextBlock, "TextBlock")

FVector2D UTextBlock::ComputeDesiredSize()
{
	FSlateFontMeasure* Measure = FSlateFontMeasure::Get();
	return Measure != nullptr ? Measure->Measure(Text.ToString(), Font) : FVector2D::ZeroVector;
}
