#include "SpritePlanes.h"

#include "BlendRows.h"
#include "OrientedPixels.h"

#include <algorithm>
#include <limits>

namespace Flitmark
{

namespace
{

int32 RoundedUp(int32 InCount, int32 InShift)
{
	return (InCount + (1 << InShift) - 1) >> InShift;
}

/** How much of the video to keep under the summed alpha of 1 << InShift pixels; see BlendSample for the two scales. */
template <typename SampleType>
SampleType KeepOf(int32 InAlphaSum, int32 InShift)
{
	constexpr int32 Scale = sizeof(SampleType) == 1 ? 1 : 257;
	const int32 Half = (1 << InShift) >> 1;
	const int32 Alpha = (InAlphaSum * Scale + Half) >> InShift;
	return static_cast<SampleType>(std::numeric_limits<SampleType>::max() - Alpha);
}

/** A matrix row applied to sums of 1 << InShift pixels. */
int64 Weighed(const std::array<int32, 4>& InRow, const int32* InSums, int32 InShift)
{
	int64 Sum = (int64{1} << (InShift + 15));
	for (size_t Index = 0; Index < 4; ++Index)
	{
		Sum += int64{InRow[Index]} * InSums[Index];
	}
	return Sum >> (InShift + 16);
}

} // namespace

template <typename SampleType>
TInkLayer<SampleType>::TInkLayer(int32 InWidth, int32 InHeight, int32 InColors)
	: Width(InWidth)
	, Height(InHeight)
	, Stride((InWidth + BlendBlock - 1) / BlendBlock * BlendBlock)
	, Keep(Offset(InHeight), std::numeric_limits<SampleType>::max())
{
	for (int32 Color = 0; Color < InColors; ++Color)
	{
		Colors[static_cast<size_t>(Color)].resize(Keep.size());
	}
}

template <typename SampleType>
void TInkLayer<SampleType>::SetColor(int32 InColor, int32 InRow, int32 InSample, int64 InValue, int32 InMaximum)
{
	const size_t Index = At(InRow, InSample);
	// The color is bounded by what remains above the brightest sample, so that no sum overflows, however it is rounded.
	const SampleType Brightest = static_cast<SampleType>(InMaximum);
	const int32 Room = InMaximum - BlendSample(Brightest, Keep[Index], SampleType{0});
	Colors[static_cast<size_t>(InColor)][Index] = static_cast<SampleType>(std::clamp<int64>(InValue, 0, Room));
}

template <typename SampleType>
void TInkLayer<SampleType>::FindInk()
{
	constexpr SampleType Nothing = std::numeric_limits<SampleType>::max();
	FirstSpan.reserve(static_cast<size_t>(Height) + 1);
	FirstSpan.push_back(0);
	for (int32 Row = 0; Row < Height; ++Row)
	{
		const SampleType* const Samples = KeepRow(Row);
		bool bOpen = false;
		for (int32 Begin = 0; Begin < Stride; Begin += BlendBlock)
		{
			const bool bInk =
				std::any_of(Samples + Begin, Samples + Begin + BlendBlock, [](SampleType In) { return In != Nothing; });
			if (bInk && bOpen)
			{
				Spans.back().End += BlendBlock;
			}
			else if (bInk)
			{
				Spans.push_back({Begin, Begin + BlendBlock});
			}
			bOpen = bInk;
		}
		FirstSpan.push_back(static_cast<uint32>(Spans.size()));
	}
}

template <typename SampleType>
TSpritePlanes<SampleType>::TSpritePlanes(const FSprite& InSprite, double InOpacity, const FBlendStyle& InStyle)
	: Width(InStyle.Orientation.bTranspose ? InSprite.Height : InSprite.Width)
	, Height(InStyle.Orientation.bTranspose ? InSprite.Width : InSprite.Height)
	, Style(InStyle)
	, Luma(0, 0, 0)
{
	Rgba = OrientedPixels(InSprite, InOpacity, InStyle.Orientation, Width, Height);
	Luma = MakeLuma();
}

template <typename SampleType>
TInkLayer<SampleType> TSpritePlanes<SampleType>::MakeLuma() const
{
	const int32 Maximum = (1 << Style.Layout.Depth) - 1;
	TInkLayer<SampleType> Layer(Width, Height, 1);
	const uint8* Pixel = Rgba.data();
	for (int32 Row = 0; Row < Height; ++Row)
	{
		for (int32 Column = 0; Column < Width; ++Column, Pixel += 4)
		{
			if (Pixel[3] != 0)
			{
				const int32 Sums[4] = {Pixel[0], Pixel[1], Pixel[2], Pixel[3]};
				Layer.SetKeep(Row, Column, KeepOf<SampleType>(Sums[3], 0));
				Layer.SetColor(0, Row, Column, Weighed(Style.Matrix.Row[0], Sums, 0), Maximum);
			}
		}
	}
	Layer.FindInk();
	return Layer;
}

template <typename SampleType>
TInkLayer<SampleType> TSpritePlanes<SampleType>::MakeChroma(const FPlaneLayout& InPlane, int32 InPhaseX,
															int32 InPhaseY) const
{
	const int32 Maximum = (1 << Style.Layout.Depth) - 1;
	const int32 Shift = InPlane.ShiftX + InPlane.ShiftY;
	const bool bTogether = InPlane.Components == 2;
	const int32 Columns = RoundedUp(Width + InPhaseX, InPlane.ShiftX);
	const int32 Rows = RoundedUp(Height + InPhaseY, InPlane.ShiftY);
	TInkLayer<SampleType> Layer(bTogether ? 2 * Columns : Columns, Rows, bTogether ? 1 : 2);
	std::vector<int32> Sums;
	for (int32 Row = 0; Row < Rows; ++Row)
	{
		// Pixels of the chroma block outside the sprite count as empty.
		Sums.assign(static_cast<size_t>(Columns) * 4, 0);
		const int32 First = std::max(0, (Row << InPlane.ShiftY) - InPhaseY);
		const int32 Last = std::min(Height, ((Row + 1) << InPlane.ShiftY) - InPhaseY);
		for (int32 Line = First; Line < Last; ++Line)
		{
			const uint8* Pixel = Rgba.data() + static_cast<size_t>(Line) * static_cast<size_t>(Width) * 4;
			for (int32 Column = 0; Column < Width; ++Column, Pixel += 4)
			{
				int32* const Sum = Sums.data() + static_cast<ptrdiff_t>((Column + InPhaseX) >> InPlane.ShiftX) * 4;
				Sum[0] += Pixel[0];
				Sum[1] += Pixel[1];
				Sum[2] += Pixel[2];
				Sum[3] += Pixel[3];
			}
		}
		for (int32 Column = 0; Column < Columns; ++Column)
		{
			const int32* const Sum = Sums.data() + static_cast<ptrdiff_t>(Column) * 4;
			for (int32 Each = 0; Sum[3] != 0 && Each < 2; ++Each)
			{
				const int32 Component = bTogether ? InPlane.Component[static_cast<size_t>(Each)] : Each + 1;
				const int32 Sample = bTogether ? 2 * Column + Each : Column;
				Layer.SetKeep(Row, Sample, KeepOf<SampleType>(Sum[3], Shift));
				Layer.SetColor(bTogether ? 0 : Each, Row, Sample,
							   Weighed(Style.Matrix.Row[static_cast<size_t>(Component)], Sum, Shift), Maximum);
			}
		}
	}
	Layer.FindInk();
	return Layer;
}

template <typename SampleType>
const TInkLayer<SampleType>& TSpritePlanes<SampleType>::Layer(const FPlaneLayout& InPlane, int32 InX, int32 InY)
{
	if (InPlane.Components == 1 && InPlane.Component[0] == 0)
	{
		return Luma;
	}
	const int32 PhaseX = InX & ((1 << InPlane.ShiftX) - 1);
	const int32 PhaseY = InY & ((1 << InPlane.ShiftY) - 1);
	Chroma.resize(size_t{1} << (InPlane.ShiftX + InPlane.ShiftY));
	auto& Found = Chroma[static_cast<size_t>((PhaseY << InPlane.ShiftX) + PhaseX)];
	if (!Found)
	{
		Found.emplace(MakeChroma(InPlane, PhaseX, PhaseY));
	}
	return *Found;
}

template class TInkLayer<uint8>;
template class TInkLayer<uint16>;
template class TSpritePlanes<uint8>;
template class TSpritePlanes<uint16>;

} // namespace Flitmark
