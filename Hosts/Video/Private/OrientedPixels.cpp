#include "OrientedPixels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace Flitmark
{

std::vector<uint8> OrientedPixels(const FSprite& InSprite, double InOpacity, const FOrientation& InOrientation,
								  int32 InWidth, int32 InHeight)
{
	const double Opacity = std::isfinite(InOpacity) ? std::clamp(InOpacity, 0.0, 1.0) : 1.0;
	std::array<uint8, 256> Scaled;
	for (size_t Value = 0; Value < Scaled.size(); ++Value)
	{
		Scaled[Value] = static_cast<uint8>(std::lround(static_cast<double>(Value) * Opacity));
	}
	std::vector<uint8> Rgba(static_cast<size_t>(InWidth) * static_cast<size_t>(InHeight) * 4);
	const auto Step = [&InSprite, &InOrientation, InWidth, InHeight](int32 InP, int32 InQ)
	{
		const auto [X, Y] = InOrientation.ToUpright(InP, InQ, InWidth, InHeight);
		return (ptrdiff_t{Y} * InSprite.Width + X) * 4;
	};
	const ptrdiff_t NextPixel = Step(1, 0) - Step(0, 0);
	uint8* Target = Rgba.data();
	for (int32 Row = 0; Row < InHeight; ++Row)
	{
		ptrdiff_t Source = Step(0, Row);
		for (int32 Column = 0; Column < InWidth; ++Column, Source += NextPixel, Target += 4)
		{
			for (ptrdiff_t Index = 0; Index < 4; ++Index)
			{
				Target[Index] = Scaled[InSprite.Pixels[static_cast<size_t>(Source + Index)]];
			}
		}
	}
	return Rgba;
}

} // namespace Flitmark
