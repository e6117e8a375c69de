#include "Overlay/CommentStyle.h"

#include "Components/TextBlock.h"
#include "Text/TextLimits.h"

#include <functional>

namespace Flitmark
{

FCommentStyle FCommentStyle::Of(const UTextBlock& InText, double InScale)
{
	// One more than is set, so that the text engine still sees that something is missing.
	return {InText.GetText().ToString().GetStd().substr(0, FTextLimits::MaxCodeUnits + 1),
			InText.GetFont().Size * static_cast<float>(InScale),
			InText.GetColorAndOpacity().GetSpecifiedColor().ToFColorSRGB()};
}

FSprite FCommentStyle::Rasterize(FTextEngine& InEngine, FTextScale InScale) const
{
	return InEngine.Rasterize(Text, Size, {Color.R, Color.G, Color.B, Color.A}, InScale);
}

std::size_t FCommentStyleHash::operator()(const FCommentStyle& InStyle) const
{
	const FColor& Color = InStyle.Color;
	std::size_t Hash = std::hash<std::u16string>()(InStyle.Text);
	for (const std::size_t Part : {std::hash<float>()(InStyle.Size), std::size_t{Color.R}, std::size_t{Color.G},
								   std::size_t{Color.B}, std::size_t{Color.A}})
	{
		Hash = Hash * 31 + Part;
	}
	return Hash;
}

} // namespace Flitmark
