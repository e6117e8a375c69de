#include "Fonts/FontMeasure.h"

namespace
{

FSlateFontMeasure* Service = nullptr;

} // namespace

void FSlateFontMeasure::Install(FSlateFontMeasure* InService)
{
	Service = InService;
}

FSlateFontMeasure* FSlateFontMeasure::Get()
{
	return Service;
}
