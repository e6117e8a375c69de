#include "SpritePainter.h"

#include "Text/TextLimits.h"
#include "TextMetrics.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

namespace Flitmark
{

namespace
{

/** Pixels of the mask that each thread keeps for its next sprite. */
constexpr std::size_t MaxKeptPixels = std::size_t{1} << 20;

/** Memory for the glyphs of a sprite: enough to cover the largest sprite four times. */
constexpr std::size_t MaxGlyphBytes = std::size_t{FTextLimits::MaxSpritePixels} * sizeof(uint16) * 4;

struct FPlacedImage
{
	std::shared_ptr<const FGlyphImage> Image;
	int32 X = 0;
	int32 Y = 0;
};

struct FBounds
{
	int64 Left = std::numeric_limits<int32>::max();
	int64 Top = std::numeric_limits<int32>::max();
	int64 Right = std::numeric_limits<int32>::min();
	int64 Bottom = std::numeric_limits<int32>::min();

	void Add(const FPlacedImage& InPlaced, const FPixelRect& InPlane)
	{
		if (InPlane.Width > 0)
		{
			Left = std::min<int64>(Left, InPlaced.X + InPlane.Left);
			Top = std::min<int64>(Top, InPlaced.Y + InPlane.Top);
			Right = std::max<int64>(Right, InPlaced.X + InPlane.Left + InPlane.Width);
			Bottom = std::max<int64>(Bottom, InPlaced.Y + InPlane.Top + InPlane.Height);
		}
	}
};

/** Product of two fractions of 255, rounded. */
constexpr uint16 Multiply(uint16 InLeft, uint16 InRight)
{
	const auto Sum = static_cast<uint16>(InLeft * InRight + 128U);
	return static_cast<uint16>(static_cast<uint16>(Sum + (Sum >> 8U)) >> 8U);
}

/** Calls InBlendRow(first pixel in the sprite, row and column in the plane, pixels) for each row inside the sprite. */
template <typename BlendRowType>
void ForEachRow(const FSprite& InSprite, const FPlacedImage& InPlaced, const FPixelRect& InPlane,
				BlendRowType InBlendRow)
{
	const int32 X = InPlaced.X + InPlane.Left - InSprite.Left;
	const int32 Y = InPlaced.Y + InPlane.Top - InSprite.Top;
	const int32 Left = std::max(X, 0);
	const int32 Width = std::min(X + InPlane.Width, InSprite.Width) - Left;
	const int32 Bottom = std::min(Y + InPlane.Height, InSprite.Height);
	if (Width <= 0)
	{
		return;
	}
	for (int32 Row = std::max(Y, 0); Row < Bottom; ++Row)
	{
		InBlendRow(std::ptrdiff_t{Row} * InSprite.Width + Left, Row - Y, Left - X, Width);
	}
}

/**
 * Coverage adds up, since parts of a letter may abut within a pixel; for outlines the darkest wins, so that they do not
 * darken each other. 16 bits and plain loops, so that compilers vectorize it.
 */
void BlendMask(uint16* __restrict OutTarget, const uint16* __restrict InSource, int32 InCount)
{
	for (int32 Index = 0; Index < InCount; ++Index)
	{
		const auto Fill = static_cast<uint16>((OutTarget[Index] & 0xffU) + (InSource[Index] & 0xffU));
		const auto Below = static_cast<uint16>(OutTarget[Index] >> 8U);
		const auto Above = static_cast<uint16>(InSource[Index] >> 8U);
		const uint16 Capped = Fill < 255 ? Fill : uint16{255};
		const uint16 Shade = Below < Above ? Above : Below;
		OutTarget[Index] = static_cast<uint16>(Capped | Shade << 8U);
	}
}

void BlendColor(uint8* OutTarget, const uint8* InSource, uint16 InAlpha, int32 InCount)
{
	for (int32 Index = 0; Index < InCount; ++Index, OutTarget += 4, InSource += 4)
	{
		const auto Uncovered = static_cast<uint16>(255U - Multiply(InSource[3], InAlpha));
		for (std::size_t Channel = 0; Channel < 4; ++Channel)
		{
			const unsigned Own = Multiply(InSource[Channel], InAlpha);
			const unsigned Below = Multiply(OutTarget[Channel], Uncovered);
			OutTarget[Channel] = static_cast<uint8>(std::min(Own + Below, 255U));
		}
	}
}

/** Outside these bounds, in pixels from the comment's corner, nothing of a glyph would be painted. */
struct FReach
{
	double Right = std::numeric_limits<double>::infinity();
	double Bottom = std::numeric_limits<double>::infinity();
};

/**
 * Decided before a glyph is drawn: drawing what is then dropped would cost the time and memory that the limits save.
 */
FReach FindReach(std::span<const FShapedGlyph> InGlyphs, const FSpriteStyle& InStyle)
{
	const auto IsLeftOf = [](const FShapedGlyph& InLeft, const FShapedGlyph& InRight)
	{
		return InLeft.X < InRight.X;
	};
	const auto [First, Last] = std::minmax_element(InGlyphs.begin(), InGlyphs.end(), IsLeftOf);
	FReach Reach;
	if (InGlyphs.empty())
	{
		return Reach;
	}
	const double LineHeight = TextMetrics::LineHeight * InStyle.EmY;
	const double Left = TextMetrics::ToEms(First->X) * InStyle.EmX;
	const double Top = InGlyphs.front().Line * LineHeight;
	// One more em on both sides for the width of the glyphs.
	const double Width = TextMetrics::ToEms(Last->X) * InStyle.EmX - Left + 2.0 * InStyle.EmX;
	const double Height = (InGlyphs.back().Line + 1) * LineHeight - Top;
	if (Width * Height > static_cast<double>(FTextLimits::MaxSpritePixels))
	{
		const double Rows = std::min(Height, static_cast<double>(FTextLimits::MaxSpriteRows));
		Reach.Right = Left + static_cast<double>(FTextLimits::MaxSpritePixels) / Rows + InStyle.EmX;
		Reach.Bottom = Top + Rows + InStyle.EmY;
	}
	return Reach;
}

/** Draws the glyphs. False if some were left out. */
bool PlaceGlyphs(FGlyphStore& InStore, std::span<const FShapedGlyph> InGlyphs, const FSpriteStyle& InStyle,
				 std::vector<FPlacedImage>& OutPlaced)
{
	constexpr double SubPixels = 64.0;
	const auto EmX = static_cast<int32>(std::lround(InStyle.EmX * SubPixels));
	const auto EmY = static_cast<int32>(std::lround(InStyle.EmY * SubPixels));
	const FReach Reach = FindReach(InGlyphs, InStyle);
	std::size_t Bytes = 0;
	OutPlaced.reserve(InGlyphs.size());
	for (const FShapedGlyph& Glyph : InGlyphs)
	{
		const double PenX = (TextMetrics::Outline + TextMetrics::ToEms(Glyph.X)) * InStyle.EmX;
		const double Baseline = (TextMetrics::LineHeight * Glyph.Line + TextMetrics::Baseline) * InStyle.EmY;
		if (PenX > Reach.Right || Baseline > Reach.Bottom || Bytes > MaxGlyphBytes)
		{
			continue;
		}
		const double Raise = TextMetrics::ToEms(Glyph.Y) * InStyle.EmY;
		const int64 Steps = std::llround(PenX * FGlyphKey::PhaseCount);
		const auto Phase = static_cast<uint8>(Steps & (FGlyphKey::PhaseCount - 1));
		FPlacedImage& Placed = OutPlaced.emplace_back();
		Placed.Image = InStore.Get({Glyph.Glyph, Glyph.Font, Phase, EmX, EmY});
		Placed.X = static_cast<int32>((Steps - Phase) / FGlyphKey::PhaseCount);
		Placed.Y = static_cast<int32>(std::lround(Baseline) - std::lround(Raise));
		Bytes += Placed.Image->CountBytes();
	}
	return OutPlaced.size() == InGlyphs.size();
}

/** Sizes the sprite to its ink, within the limits. */
void SizeSprite(std::span<const FPlacedImage> InPlaced, FSprite& OutSprite)
{
	FBounds Bounds;
	for (const FPlacedImage& Placed : InPlaced)
	{
		Bounds.Add(Placed, Placed.Image->Masks);
		Bounds.Add(Placed, Placed.Image->Color);
		OutSprite.bCut = OutSprite.bCut || Placed.Image->bCut;
	}
	int64 Width = Bounds.Right - Bounds.Left;
	int64 Height = Bounds.Bottom - Bounds.Top;
	if (Width <= 0 || Height <= 0)
	{
		return;
	}
	if (Width > FTextLimits::MaxSpritePixels / Height)
	{
		Height = std::min(Height, FTextLimits::MaxSpriteRows);
		Width = std::min(Width, FTextLimits::MaxSpritePixels / Height);
		OutSprite.bCut = true;
	}
	OutSprite.Left = static_cast<int32>(Bounds.Left);
	OutSprite.Top = static_cast<int32>(Bounds.Top);
	OutSprite.Width = static_cast<int32>(Width);
	OutSprite.Height = static_cast<int32>(Height);
}

static_assert(std::endian::native == std::endian::little, "a pixel's first byte, red, is its lowest");

/** Fill over outline, all faded by the color's alpha. The outline is black, or white around dark letters. */
void ComposeMasks(const uint16* __restrict InMasks, std::size_t InCount, FTextColor InColor,
				  uint8* __restrict OutPixels)
{
	const uint16 Alpha = InColor.Alpha;
	const uint16 Red = Multiply(InColor.Red, Alpha);
	const uint16 Green = Multiply(InColor.Green, Alpha);
	const uint16 Blue = Multiply(InColor.Blue, Alpha);
	const uint16 OutlineLight = Multiply(FTextEngine::GetOutlineColor(InColor).Red, Alpha);
	for (std::size_t Index = 0; Index < InCount; ++Index)
	{
		const auto Fill = static_cast<uint16>(InMasks[Index] & 0xffU);
		const auto Shade = static_cast<uint16>(InMasks[Index] >> 8U);
		const auto Uncovered = static_cast<uint16>(255U - Fill);
		const uint16 Edge = Multiply(Shade, Uncovered);
		const uint16 Light = Multiply(Edge, OutlineLight);
		const auto Mix = [Fill, Light](uint16 InChannel)
		{
			// Both parts are rounded, so their sum may be one too large.
			const auto Sum = static_cast<uint16>(Multiply(Fill, InChannel) + Light);
			return Sum < 255 ? Sum : uint16{255};
		};
		const auto RedGreen = static_cast<uint16>(Mix(Red) | Mix(Green) << 8U);
		const auto BlueAlpha = static_cast<uint16>(Mix(Blue) | Multiply(Fill + Edge, Alpha) << 8U);
		const uint32 Pixel = RedGreen | static_cast<uint32>(BlueAlpha) << 16U;
		// Whole pixels, because bytes would be stored one by one.
		std::memcpy(OutPixels + 4 * Index, &Pixel, sizeof(Pixel));
	}
}

void PaintMasks(std::span<const FPlacedImage> InPlaced, FTextColor InColor, FSprite& InOutSprite)
{
	thread_local std::vector<uint16> Canvas;
	const std::size_t Count = InOutSprite.Pixels.size() / 4;
	// A glyph's blocks may extend past the last pixel; they are empty there.
	Canvas.assign(Count + FMaskPlane::Block, 0);
	for (const FPlacedImage& Placed : InPlaced)
	{
		const FMaskPlane& Plane = Placed.Image->Masks;
		const auto BlendRow = [&Plane](std::ptrdiff_t InTarget, int32 InRow, int32 InColumn, int32 InCount)
		{
			const uint16* Source = Plane.Pixels.data() + std::ptrdiff_t{InRow} * Plane.Stride + InColumn;
			const int32 Whole = InCount == Plane.Width ? Plane.Stride : InCount;
			BlendMask(Canvas.data() + InTarget, Source, Whole);
		};
		ForEachRow(InOutSprite, Placed, Plane, BlendRow);
	}
	ComposeMasks(Canvas.data(), Count, InColor, InOutSprite.Pixels.data());
	if (Count > MaxKeptPixels)
	{
		Canvas = std::vector<uint16>();
	}
}

void PaintColors(std::span<const FPlacedImage> InPlaced, uint16 InAlpha, FSprite& InOutSprite)
{
	for (const FPlacedImage& Placed : InPlaced)
	{
		const FColorPlane& Plane = Placed.Image->Color;
		const auto BlendRow =
			[&Plane, &InOutSprite, InAlpha](std::ptrdiff_t InTarget, int32 InRow, int32 InColumn, int32 InCount)
		{
			uint8* Target = InOutSprite.Pixels.data() + InTarget * 4;
			const uint8* Source = Plane.Pixels.data() + (std::ptrdiff_t{InRow} * Plane.Width + InColumn) * 4;
			BlendColor(Target, Source, InAlpha, InCount);
		};
		ForEachRow(InOutSprite, Placed, Plane, BlendRow);
	}
}

} // namespace

FSprite PaintSprite(FGlyphStore& InStore, std::span<const FShapedGlyph> InGlyphs, const FSpriteStyle& InStyle)
{
	std::vector<FPlacedImage> Placed;
	FSprite Sprite;
	Sprite.bCut = !PlaceGlyphs(InStore, InGlyphs, InStyle, Placed);
	SizeSprite(Placed, Sprite);
	Sprite.Pixels.resize(static_cast<std::size_t>(Sprite.Width) * static_cast<std::size_t>(Sprite.Height) * 4);
	PaintMasks(Placed, InStyle.Color, Sprite);
	PaintColors(Placed, InStyle.Color.Alpha, Sprite);
	return Sprite;
}

} // namespace Flitmark
