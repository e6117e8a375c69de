#pragma once

#include "CoreTypes.h"
#include "ColorMatrix.h"
#include "Orientation.h"
#include "PixelLayout.h"
#include "Text/Sprite.h"

#include <array>
#include <span>
#include <vector>

namespace Flitmark
{

/** Everything that determines how a sprite becomes samples of a video. */
struct FBlendStyle
{
	FPixelLayout Layout;
	FColorMatrix Matrix;
	FOrientation Orientation;
};

/** A run of samples of one row that hold ink; both ends are multiples of BlendBlock. */
struct FInkSpan
{
	int32 Begin = 0;
	int32 End = 0;
};

/** A sprite converted for one kind of plane: how much of the video to keep, and what to add. */
template <typename SampleType>
class TInkLayer
{
public:
	TInkLayer(int32 InWidth, int32 InHeight, int32 InColors);

	/** Samples per row (twice the chroma positions if Cb and Cr are interleaved), and stride. */
	int32 Width;
	int32 Height;
	int32 Stride;

	const SampleType* KeepRow(int32 InRow) const { return Keep.data() + Offset(InRow); }
	const SampleType* ColorRow(int32 InColor, int32 InRow) const
	{
		return Colors[static_cast<size_t>(InColor)].data() + Offset(InRow);
	}
	std::span<const FInkSpan> RowSpans(int32 InRow) const
	{
		const size_t Row = static_cast<size_t>(InRow);
		return {Spans.data() + FirstSpan[Row], FirstSpan[Row + 1] - FirstSpan[Row]};
	}

	/** Sets a sample; InValue is clamped to the room that the kept part of the video leaves. */
	void SetKeep(int32 InRow, int32 InSample, SampleType InKeep) { Keep[At(InRow, InSample)] = InKeep; }
	void SetColor(int32 InColor, int32 InRow, int32 InSample, int64 InValue, int32 InMaximum);

	/** Finds the spans, once all samples are set. */
	void FindInk();

private:
	size_t Offset(int32 InRow) const { return static_cast<size_t>(InRow) * static_cast<size_t>(Stride); }
	size_t At(int32 InRow, int32 InSample) const { return Offset(InRow) + static_cast<size_t>(InSample); }

	std::vector<SampleType> Keep;
	std::array<std::vector<SampleType>, 2> Colors;
	std::vector<FInkSpan> Spans;
	std::vector<uint32> FirstSpan;
};

/** A sprite converted to a video's planes, once; chroma for each alignment with the chroma grid, on demand. */
template <typename SampleType>
class TSpritePlanes
{
public:
	/** InOpacity: from 0 (invisible) to 1. */
	TSpritePlanes(const FSprite& InSprite, double InOpacity, const FBlendStyle& InStyle);

	/**
	 * The layer for a plane, of a sprite whose left top stored pixel is at (InX, InY) of the picture; only the low
	 * bits of the position matter.
	 */
	const TInkLayer<SampleType>& Layer(const FPlaneLayout& InPlane, int32 InX, int32 InY);

	/** Which of a layer's colors a plane uses. */
	static int32 ColorOf(const FPlaneLayout& InPlane)
	{
		return InPlane.Components == 1 && InPlane.Component[0] == 2 ? 1 : 0;
	}

private:
	TInkLayer<SampleType> MakeLuma() const;
	TInkLayer<SampleType> MakeChroma(const FPlaneLayout& InPlane, int32 InPhaseX, int32 InPhaseY) const;

	/** The sprite in the orientation of the stored picture, with opacity applied. */
	std::vector<uint8> Rgba;
	int32 Width;
	int32 Height;
	const FBlendStyle& Style;
	TInkLayer<SampleType> Luma;
	/** By the position's low bits, y before x. */
	std::vector<std::optional<TInkLayer<SampleType>>> Chroma;
};

extern template class TInkLayer<uint8>;
extern template class TInkLayer<uint16>;
extern template class TSpritePlanes<uint8>;
extern template class TSpritePlanes<uint16>;

} // namespace Flitmark
