#include "Blender.h"

#include "BlendRows.h"
#include "SpriteCache.h"

#include <algorithm>
#include <cmath>

namespace Flitmark
{

namespace
{

template <typename SampleType>
class TBlender final : public IBlender
{
public:
	explicit TBlender(const FBlendStyle& InStyle)
		: Style(InStyle)
		, Cache(Style)
		, BlendRow(FastestBlendRow<SampleType>())
	{
	}

	void Blend(AVFrame& InFrame, std::span<const FPlacedSprite> InSprites) override
	{
		for (const FPlacedSprite& Each : InSprites)
		{
			const auto Place = StoredPlace(Each, Style.Orientation, InFrame.width, InFrame.height);
			if (!Place)
			{
				continue;
			}
			TSpritePlanes<SampleType>& Planes = Cache.Find(Each);
			for (int32 Plane = 0; Plane < Style.Layout.PlaneCount; ++Plane)
			{
				const FPlaneLayout& Layout = Style.Layout.Planes[static_cast<size_t>(Plane)];
				BlendLayer(InFrame, Plane, Planes.Layer(Layout, Place->X, Place->Y), *Place);
			}
		}
		Cache.Sweep();
	}

private:
	void BlendLayer(AVFrame& InFrame, int32 InPlane, const TInkLayer<SampleType>& InLayer, const FPixelRect& InPlace)
	{
		const FPlaneLayout& Plane = Style.Layout.Planes[static_cast<size_t>(InPlane)];
		const int32 Color = TSpritePlanes<SampleType>::ColorOf(Plane);
		const int32 Width = AV_CEIL_RSHIFT(InFrame.width, Plane.ShiftX) * Plane.Components;
		const int32 Height = AV_CEIL_RSHIFT(InFrame.height, Plane.ShiftY);
		const int32 X = (InPlace.X >> Plane.ShiftX) * Plane.Components;
		const int32 Y = InPlace.Y >> Plane.ShiftY;
		const int32 LastRow = std::min(InLayer.Height, Height - Y);
		for (int32 Row = std::max(0, -Y); Row < LastRow; ++Row)
		{
			uint8* const Line = InFrame.data[InPlane] + ptrdiff_t{Y + Row} * InFrame.linesize[InPlane];
			SampleType* const Samples = reinterpret_cast<SampleType*>(Line);
			for (const FInkSpan& Span : InLayer.RowSpans(Row))
			{
				const int32 Begin = std::max(Span.Begin, -X);
				const int32 End = std::min(Span.End, Width - X);
				if (Begin < End)
				{
					BlendRow(Samples + X + Begin, InLayer.KeepRow(Row) + Begin, InLayer.ColorRow(Color, Row) + Begin,
							 End - Begin, Style.Layout.SampleShift);
				}
			}
		}
	}

	FBlendStyle Style;
	TSpriteCache<TSpritePlanes<SampleType>, FBlendStyle> Cache;
	FBlendRow<SampleType> BlendRow;
};

} // namespace

std::unique_ptr<IBlender> IBlender::Make(const FBlendStyle& InStyle)
{
	if (InStyle.Layout.Depth > 8)
	{
		return std::make_unique<TBlender<uint16>>(InStyle);
	}
	return std::make_unique<TBlender<uint8>>(InStyle);
}

std::optional<FPixelRect> StoredPlace(const FPlacedSprite& InSprite, const FOrientation& InOrientation, int32 InWidth,
									  int32 InHeight)
{
	// Far outside any picture, and far from integer overflow.
	constexpr double Farthest = 1'000'000.0;
	if (!InSprite.Sprite || InSprite.Sprite->Width <= 0 || InSprite.Sprite->Height <= 0)
	{
		return std::nullopt;
	}
	const FSprite& Sprite = *InSprite.Sprite;
	const double X = std::floor(InSprite.X + 0.5) + Sprite.Left;
	const double Y = std::floor(InSprite.Y + 0.5) + Sprite.Top;
	const size_t Pixels = static_cast<size_t>(Sprite.Width) * static_cast<size_t>(Sprite.Height);
	if (!(std::abs(X) < Farthest && std::abs(Y) < Farthest) || Sprite.Width > Farthest || Sprite.Height > Farthest ||
		Sprite.Pixels.size() < Pixels * 4)
	{
		return std::nullopt;
	}
	const FPixelRect Upright{static_cast<int32>(X), static_cast<int32>(Y), Sprite.Width, Sprite.Height};
	const FPixelRect Place = InOrientation.ToStored(Upright, InWidth, InHeight);
	if (Place.X >= InWidth || Place.Y >= InHeight || Place.X + Place.Width <= 0 || Place.Y + Place.Height <= 0)
	{
		return std::nullopt;
	}
	return Place;
}

} // namespace Flitmark
