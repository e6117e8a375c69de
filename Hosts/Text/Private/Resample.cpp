#include "Resample.h"

#include <algorithm>
#include <cmath>

namespace Flitmark
{

namespace
{

constexpr std::size_t Channels = 4;

/** The source pixels that contribute to one target pixel, and their weights. */
struct FTaps
{
	int32 First = 0;
	std::vector<float> Weights;
};

/** One axis of the scaling: where the target begins, and the taps of each of its pixels. */
struct FAxis
{
	int32 Begin = 0;
	std::vector<FTaps> Taps;
};

/** A triangle around InCenter, as wide as two target pixels; outside the source everything is transparent. */
FTaps MakeTaps(int32 InCount, double InCenter, double InReach)
{
	const auto Begin = static_cast<int32>(std::ceil(InCenter - InReach - 0.5));
	const auto End = static_cast<int32>(std::floor(InCenter + InReach - 0.5)) + 1;
	std::vector<double> Weights;
	double Sum = 0.0;
	for (int32 Source = Begin; Source < End; ++Source)
	{
		Weights.push_back(std::max(0.0, 1.0 - std::abs(Source + 0.5 - InCenter) / InReach));
		Sum += Weights.back();
	}
	FTaps Taps;
	Taps.First = std::clamp(Begin, 0, InCount);
	for (int32 Source = Taps.First; Source < std::min(End, InCount); ++Source)
	{
		Taps.Weights.push_back(static_cast<float>(Weights[static_cast<std::size_t>(Source - Begin)] / Sum));
	}
	return Taps;
}

/** InOffset: where the source's first pixel begins, in source pixels. */
FAxis MakeAxis(int32 InCount, double InOffset, double InScale)
{
	const double Reach = std::max(1.0, 1.0 / InScale);
	FAxis Axis;
	Axis.Begin = static_cast<int32>(std::floor(InOffset * InScale));
	const auto End = static_cast<int32>(std::ceil((InOffset + InCount) * InScale));
	for (int32 Target = Axis.Begin; Target < End; ++Target)
	{
		Axis.Taps.push_back(MakeTaps(InCount, (Target + 0.5) / InScale - InOffset, Reach));
	}
	return Axis;
}

std::vector<float> ResampleRows(const FT_Bitmap& InBitmap, const FAxis& InAxis)
{
	std::vector<float> Result(InAxis.Taps.size() * InBitmap.rows * Channels);
	float* Out = Result.data();
	for (unsigned Row = 0; Row < InBitmap.rows; ++Row)
	{
		const uint8* In = InBitmap.buffer + std::ptrdiff_t{Row} * InBitmap.pitch;
		for (const FTaps& Taps : InAxis.Taps)
		{
			const uint8* Pixel = In + static_cast<std::size_t>(Taps.First) * Channels;
			for (const float Weight : Taps.Weights)
			{
				for (std::size_t Channel = 0; Channel < Channels; ++Channel)
				{
					Out[Channel] += Weight * static_cast<float>(*Pixel++);
				}
			}
			Out += Channels;
		}
	}
	return Result;
}

/** Vertical pass, to bytes, and from BGRA to RGBA. */
std::vector<uint8> ResampleColumns(const std::vector<float>& InRows, std::size_t InWidth, const FAxis& InAxis)
{
	constexpr std::size_t Order[Channels] = {2, 1, 0, 3};
	const std::size_t Stride = InWidth * Channels;
	std::vector<uint8> Result(InAxis.Taps.size() * Stride);
	std::vector<float> Sums(Stride);
	for (std::size_t Row = 0; Row < InAxis.Taps.size(); ++Row)
	{
		const FTaps& Taps = InAxis.Taps[Row];
		std::fill(Sums.begin(), Sums.end(), 0.5F);
		for (std::size_t Tap = 0; Tap < Taps.Weights.size(); ++Tap)
		{
			const float* In = InRows.data() + (static_cast<std::size_t>(Taps.First) + Tap) * Stride;
			for (std::size_t Index = 0; Index < Stride; ++Index)
			{
				Sums[Index] += Taps.Weights[Tap] * In[Index];
			}
		}
		for (std::size_t Index = 0; Index < Stride; ++Index)
		{
			const float Value = std::clamp(Sums[Index / Channels * Channels + Order[Index % Channels]], 0.0F, 255.0F);
			Result[Row * Stride + Index] = static_cast<uint8>(Value);
		}
	}
	return Result;
}

} // namespace

FColorPlane ResampleColor(const FT_Bitmap& InBitmap, int InLeft, int InTop, double InScaleX, double InScaleY)
{
	const FAxis AxisX = MakeAxis(static_cast<int32>(InBitmap.width), InLeft, InScaleX);
	const FAxis AxisY = MakeAxis(static_cast<int32>(InBitmap.rows), -InTop, InScaleY);
	FColorPlane Plane;
	Plane.Left = AxisX.Begin;
	Plane.Top = AxisY.Begin;
	Plane.Width = static_cast<int32>(AxisX.Taps.size());
	Plane.Height = static_cast<int32>(AxisY.Taps.size());
	Plane.Pixels = ResampleColumns(ResampleRows(InBitmap, AxisX), AxisX.Taps.size(), AxisY);
	return Plane;
}

} // namespace Flitmark
