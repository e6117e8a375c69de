#include "SpritePlanes.h"

#include "BlendRows.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Flitmark
{

namespace
{

int32_t RoundedUp(int32_t InCount, int32_t InShift)
{
	return (InCount + (1 << InShift) - 1) >> InShift;
}

/** What of the video stays under the sum of alpha of 1 << InShift pixels; see BlendSample for the two scales. */
template <typename SampleType>
SampleType KeepOf(int32_t InAlphaSum, int32_t InShift)
{
	constexpr int32_t Scale = sizeof(SampleType) == 1 ? 1 : 257;
	const int32_t Half = (1 << InShift) >> 1;
	const int32_t Alpha = (InAlphaSum * Scale + Half) >> InShift;
	return static_cast<SampleType>(std::numeric_limits<SampleType>::max() - Alpha);
}

/** A matrix row applied to sums of 1 << InShift pixels. */
int64_t Weighed(const std::array<int32_t, 4>& InRow, const int32_t* InSums, int32_t InShift)
{
	int64_t Sum = (int64_t{1} << (InShift + 15));
	for (size_t Index = 0; Index < 4; ++Index)
	{
		Sum += int64_t{InRow[Index]} * InSums[Index];
	}
	return Sum >> (InShift + 16);
}

std::vector<uint8_t> Oriented(const FSprite& InSprite, const FBlendStyle& InStyle, int32_t InWidth, int32_t InHeight)
{
	const double Opacity = std::isfinite(InStyle.Opacity) ? std::clamp(InStyle.Opacity, 0.0, 1.0) : 1.0;
	std::array<uint8_t, 256> Scaled;
	for (size_t Value = 0; Value < Scaled.size(); ++Value)
	{
		Scaled[Value] = static_cast<uint8_t>(std::lround(static_cast<double>(Value) * Opacity));
	}
	std::vector<uint8_t> Rgba(static_cast<size_t>(InWidth) * static_cast<size_t>(InHeight) * 4);
	const auto Step = [&InSprite, &InStyle, InWidth, InHeight](int32_t InP, int32_t InQ)
	{
		const auto [X, Y] = InStyle.Orientation.ToUpright(InP, InQ, InWidth, InHeight);
		return (ptrdiff_t{Y} * InSprite.Width + X) * 4;
	};
	const ptrdiff_t NextPixel = Step(1, 0) - Step(0, 0);
	uint8_t* Target = Rgba.data();
	for (int32_t Row = 0; Row < InHeight; ++Row)
	{
		ptrdiff_t Source = Step(0, Row);
		for (int32_t Column = 0; Column < InWidth; ++Column, Source += NextPixel, Target += 4)
		{
			for (ptrdiff_t Index = 0; Index < 4; ++Index)
			{
				Target[Index] = Scaled[InSprite.Pixels[static_cast<size_t>(Source + Index)]];
			}
		}
	}
	return Rgba;
}

} // namespace

template <typename SampleType>
TInkLayer<SampleType>::TInkLayer(int32_t InWidth, int32_t InHeight, int32_t InColors)
	: Width(InWidth)
	, Height(InHeight)
	, Stride((InWidth + BlendBlock - 1) / BlendBlock * BlendBlock)
	, Keep(Offset(InHeight), std::numeric_limits<SampleType>::max())
{
	for (int32_t Color = 0; Color < InColors; ++Color)
	{
		Colors[static_cast<size_t>(Color)].resize(Keep.size());
	}
}

template <typename SampleType>
void TInkLayer<SampleType>::SetColor(int32_t InColor, int32_t InRow, int32_t InSample, int64_t InValue,
									 int32_t InMaximum)
{
	const size_t Index = At(InRow, InSample);
	// What is left of the brightest sample bounds the colour, so that no sum runs over, however it is rounded.
	const SampleType Brightest = static_cast<SampleType>(InMaximum);
	const int32_t Room = InMaximum - BlendSample(Brightest, Keep[Index], SampleType{0});
	Colors[static_cast<size_t>(InColor)][Index] = static_cast<SampleType>(std::clamp<int64_t>(InValue, 0, Room));
}

template <typename SampleType>
void TInkLayer<SampleType>::FindInk()
{
	constexpr SampleType Nothing = std::numeric_limits<SampleType>::max();
	FirstSpan.reserve(static_cast<size_t>(Height) + 1);
	FirstSpan.push_back(0);
	for (int32_t Row = 0; Row < Height; ++Row)
	{
		const SampleType* const Samples = KeepRow(Row);
		bool bOpen = false;
		for (int32_t Begin = 0; Begin < Stride; Begin += BlendBlock)
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
		FirstSpan.push_back(static_cast<uint32_t>(Spans.size()));
	}
}

template <typename SampleType>
TSpritePlanes<SampleType>::TSpritePlanes(const FSprite& InSprite, const FBlendStyle& InStyle)
	: Width(InStyle.Orientation.bTranspose ? InSprite.Height : InSprite.Width)
	, Height(InStyle.Orientation.bTranspose ? InSprite.Width : InSprite.Height)
	, Style(InStyle)
	, Luma(0, 0, 0)
{
	Rgba = Oriented(InSprite, InStyle, Width, Height);
	Luma = MakeLuma();
}

template <typename SampleType>
TInkLayer<SampleType> TSpritePlanes<SampleType>::MakeLuma() const
{
	const int32_t Maximum = (1 << Style.Layout.Depth) - 1;
	TInkLayer<SampleType> Layer(Width, Height, 1);
	const uint8_t* Pixel = Rgba.data();
	for (int32_t Row = 0; Row < Height; ++Row)
	{
		for (int32_t Column = 0; Column < Width; ++Column, Pixel += 4)
		{
			if (Pixel[3] != 0)
			{
				const int32_t Sums[4] = {Pixel[0], Pixel[1], Pixel[2], Pixel[3]};
				Layer.SetKeep(Row, Column, KeepOf<SampleType>(Sums[3], 0));
				Layer.SetColor(0, Row, Column, Weighed(Style.Matrix.Row[0], Sums, 0), Maximum);
			}
		}
	}
	Layer.FindInk();
	return Layer;
}

template <typename SampleType>
TInkLayer<SampleType> TSpritePlanes<SampleType>::MakeChroma(const FPlaneLayout& InPlane, int32_t InPhaseX,
															int32_t InPhaseY) const
{
	const int32_t Maximum = (1 << Style.Layout.Depth) - 1;
	const int32_t Shift = InPlane.ShiftX + InPlane.ShiftY;
	const bool bTogether = InPlane.Components == 2;
	const int32_t Columns = RoundedUp(Width + InPhaseX, InPlane.ShiftX);
	const int32_t Rows = RoundedUp(Height + InPhaseY, InPlane.ShiftY);
	TInkLayer<SampleType> Layer(bTogether ? 2 * Columns : Columns, Rows, bTogether ? 1 : 2);
	std::vector<int32_t> Sums;
	for (int32_t Row = 0; Row < Rows; ++Row)
	{
		// Pixels of the chroma block that lie outside the sprite count as empty.
		Sums.assign(static_cast<size_t>(Columns) * 4, 0);
		const int32_t First = std::max(0, (Row << InPlane.ShiftY) - InPhaseY);
		const int32_t Last = std::min(Height, ((Row + 1) << InPlane.ShiftY) - InPhaseY);
		for (int32_t Line = First; Line < Last; ++Line)
		{
			const uint8_t* Pixel = Rgba.data() + static_cast<size_t>(Line) * static_cast<size_t>(Width) * 4;
			for (int32_t Column = 0; Column < Width; ++Column, Pixel += 4)
			{
				int32_t* const Sum = Sums.data() + static_cast<ptrdiff_t>((Column + InPhaseX) >> InPlane.ShiftX) * 4;
				Sum[0] += Pixel[0];
				Sum[1] += Pixel[1];
				Sum[2] += Pixel[2];
				Sum[3] += Pixel[3];
			}
		}
		for (int32_t Column = 0; Column < Columns; ++Column)
		{
			const int32_t* const Sum = Sums.data() + static_cast<ptrdiff_t>(Column) * 4;
			for (int32_t Each = 0; Sum[3] != 0 && Each < 2; ++Each)
			{
				const int32_t Component = bTogether ? InPlane.Component[static_cast<size_t>(Each)] : Each + 1;
				const int32_t Sample = bTogether ? 2 * Column + Each : Column;
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
const TInkLayer<SampleType>& TSpritePlanes<SampleType>::Layer(const FPlaneLayout& InPlane, int32_t InX, int32_t InY)
{
	if (InPlane.Components == 1 && InPlane.Component[0] == 0)
	{
		return Luma;
	}
	const int32_t PhaseX = InX & ((1 << InPlane.ShiftX) - 1);
	const int32_t PhaseY = InY & ((1 << InPlane.ShiftY) - 1);
	Chroma.resize(size_t{1} << (InPlane.ShiftX + InPlane.ShiftY));
	auto& Found = Chroma[static_cast<size_t>((PhaseY << InPlane.ShiftX) + PhaseX)];
	if (!Found)
	{
		Found.emplace(MakeChroma(InPlane, PhaseX, PhaseY));
	}
	return *Found;
}

template class TInkLayer<uint8_t>;
template class TInkLayer<uint16_t>;
template class TSpritePlanes<uint8_t>;
template class TSpritePlanes<uint16_t>;

} // namespace Flitmark
