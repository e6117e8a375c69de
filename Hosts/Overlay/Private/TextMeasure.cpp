#include "Overlay/TextMeasure.h"

namespace Flitmark
{

std::unique_ptr<FTextMeasure> FTextMeasure::Create(const FTextOptions& InOptions, std::string& OutError)
{
	std::unique_ptr<FTextEngine> Engine = FTextEngine::Create(InOptions, OutError);
	return Engine ? std::unique_ptr<FTextMeasure>(new FTextMeasure(std::move(Engine))) : nullptr;
}

FVector2D FTextMeasure::Measure(const FString& InText, const FSlateFontInfo& InFont)
{
	const FTextSize Size = Engine->Measure(InText.GetStd(), InFont.Size);
	return FVector2D(Size.Width, Size.Height);
}

} // namespace Flitmark
