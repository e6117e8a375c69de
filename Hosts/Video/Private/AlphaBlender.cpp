#include "AlphaBlender.h"

#include "OrientedPixels.h"
#include "SpriteCache.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Flitmark
{

namespace
{

constexpr double OpaqueByte = 255.0;

/** A sprite as it lies in the stored picture. */
struct FAlphaSprite
{
	FAlphaSprite(const FSprite& InSprite, double InOpacity, const FAlphaStyle& InStyle)
		: Width(InStyle.Orientation.bTranspose ? InSprite.Height : InSprite.Width)
		, Height(InStyle.Orientation.bTranspose ? InSprite.Width : InSprite.Height)
		, Rgba(OrientedPixels(InSprite, InOpacity, InStyle.Orientation, Width, Height))
	{
	}

	int32 Width;
	int32 Height;
	std::vector<uint8> Rgba;
};

/** Means over the pixels of one sample: a sprite's premultiplied red, green, blue, and alpha, each from 0 to 255. */
using FInk = std::array<double, 4>;

template <typename SampleType>
class TAlphaBlender final : public IBlender
{
public:
	explicit TAlphaBlender(const FAlphaStyle& InStyle)
		: Style(InStyle)
		, Cache(Style)
		, Maximum((1 << InStyle.Layout.Depth) - 1)
	{
	}

	void Blend(AVFrame& InFrame, std::span<const FPlacedSprite> InSprites) override
	{
		for (const FPlacedSprite& Each : InSprites)
		{
			if (const auto Place = StoredPlace(Each, Style.Orientation, InFrame.width, InFrame.height))
			{
				const FAlphaSprite& Sprite = Cache.Find(Each);
				// Alpha last: the colors depend on what it was.
				for (size_t Component = 0; Component <= FAlphaLayout::Alpha; ++Component)
				{
					BlendComponent(InFrame, Component, Sprite, *Place);
				}
			}
		}
		Cache.Sweep();
	}

private:
	SampleType& Sample(AVFrame& InFrame, const FAlphaComponent& InComponent, int32 InX, int32 InY) const
	{
		uint8* const Row = InFrame.data[InComponent.Plane] + ptrdiff_t{InY} * InFrame.linesize[InComponent.Plane];
		return *reinterpret_cast<SampleType*>(Row + ptrdiff_t{InX} * InComponent.Step + InComponent.Offset);
	}

	void BlendComponent(AVFrame& InFrame, size_t InIndex, const FAlphaSprite& InSprite, const FPixelRect& InPlace)
	{
		const FAlphaComponent& Component = Style.Layout.Components[InIndex];
		const int32 EndX = std::min(AV_CEIL_RSHIFT(InFrame.width, Component.ShiftX),
									AV_CEIL_RSHIFT(InPlace.X + InPlace.Width, Component.ShiftX));
		const int32 EndY = std::min(AV_CEIL_RSHIFT(InFrame.height, Component.ShiftY),
									AV_CEIL_RSHIFT(InPlace.Y + InPlace.Height, Component.ShiftY));
		for (int32 Y = std::max(0, InPlace.Y >> Component.ShiftY); Y < EndY; ++Y)
		{
			for (int32 X = std::max(0, InPlace.X >> Component.ShiftX); X < EndX; ++X)
			{
				const FPixelRect Block{X << Component.ShiftX, Y << Component.ShiftY, 1 << Component.ShiftX,
									   1 << Component.ShiftY};
				const FInk Ink = MeanInk(InSprite, InPlace, Block);
				if (Ink[FAlphaLayout::Alpha] > 0.0)
				{
					SampleType& Target = Sample(InFrame, Component, X, Y);
					const double Old = Target >> Component.SampleShift;
					const double New = Mix(InIndex, Old, MeanAlpha(InFrame, Block), Ink);
					const double Bounded = std::clamp(New, 0.0, static_cast<double>(Maximum));
					Target = static_cast<SampleType>(std::lround(Bounded) << Component.SampleShift);
				}
			}
		}
	}

	/** The new value of a sample, from the old one and the picture's alpha, 0 to 1. */
	double Mix(size_t InIndex, double InOld, double InAlpha, const FInk& InInk) const
	{
		const double Over = InInk[FAlphaLayout::Alpha] / OpaqueByte;
		const double Kept = InAlpha * (1.0 - Over);
		if (InIndex == FAlphaLayout::Alpha)
		{
			return (Over + Kept) * Maximum;
		}
		return (Premultiplied(InIndex, InInk) + InOld * Kept) / (Over + Kept);
	}

	double Premultiplied(size_t InIndex, const FInk& InInk) const
	{
		if (Style.Layout.bRgb)
		{
			return InInk[InIndex] * Maximum / OpaqueByte;
		}
		constexpr double MatrixUnit = 65536.0;
		const std::array<int32, 4>& Row = Style.Matrix.Row[InIndex];
		return (InInk[0] * Row[0] + InInk[1] * Row[1] + InInk[2] * Row[2] + InInk[3] * Row[3]) / MatrixUnit;
	}

	/** Pixels outside the sprite count as empty. */
	static FInk MeanInk(const FAlphaSprite& InSprite, const FPixelRect& InPlace, const FPixelRect& InBlock)
	{
		std::array<int32, 4> Sums{};
		const int32 Left = std::max(0, InBlock.X - InPlace.X);
		const int32 Right = std::min(InSprite.Width, InBlock.X + InBlock.Width - InPlace.X);
		const int32 Bottom = std::min(InSprite.Height, InBlock.Y + InBlock.Height - InPlace.Y);
		for (int32 Row = std::max(0, InBlock.Y - InPlace.Y); Row < Bottom; ++Row)
		{
			const uint8* Pixel = InSprite.Rgba.data() + (ptrdiff_t{Row} * InSprite.Width + Left) * 4;
			for (int32 Column = Left; Column < Right; ++Column, Pixel += 4)
			{
				for (size_t Index = 0; Index < Sums.size(); ++Index)
				{
					Sums[Index] += Pixel[Index];
				}
			}
		}
		const double Count = InBlock.Width * InBlock.Height;
		return {Sums[0] / Count, Sums[1] / Count, Sums[2] / Count, Sums[3] / Count};
	}

	/** Of the pixels of a block that are in the picture, from 0 to 1. */
	double MeanAlpha(AVFrame& InFrame, const FPixelRect& InBlock) const
	{
		const FAlphaComponent& Alpha = Style.Layout.Components[FAlphaLayout::Alpha];
		const int32 Right = std::min(InFrame.width, InBlock.X + InBlock.Width);
		const int32 Bottom = std::min(InFrame.height, InBlock.Y + InBlock.Height);
		int64 Sum = 0;
		for (int32 Y = InBlock.Y; Y < Bottom; ++Y)
		{
			for (int32 X = InBlock.X; X < Right; ++X)
			{
				Sum += Sample(InFrame, Alpha, X, Y) >> Alpha.SampleShift;
			}
		}
		const int32 Count = (Right - InBlock.X) * (Bottom - InBlock.Y);
		return static_cast<double>(Sum) / (static_cast<double>(Count) * Maximum);
	}

	FAlphaStyle Style;
	TSpriteCache<FAlphaSprite, FAlphaStyle> Cache;
	int32 Maximum;
};

} // namespace

std::unique_ptr<IBlender> MakeAlphaBlender(const FAlphaStyle& InStyle)
{
	if (InStyle.Layout.Depth > 8)
	{
		return std::make_unique<TAlphaBlender<uint16>>(InStyle);
	}
	return std::make_unique<TAlphaBlender<uint8>>(InStyle);
}

} // namespace Flitmark
