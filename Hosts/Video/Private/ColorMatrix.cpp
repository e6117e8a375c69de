#include "ColorMatrix.h"

#include "PixelLayout.h"

#include <cmath>

namespace Flitmark
{

namespace
{

/** Weights of red and blue in luma, ITU-T H.273 table 4. */
struct FLumaWeights
{
	double Red;
	double Blue;
};

FLumaWeights WeightsOf(AVColorSpace InSpace)
{
	switch (InSpace)
	{
	case AVCOL_SPC_BT470BG:
	case AVCOL_SPC_SMPTE170M:
		return {0.299, 0.114};
	case AVCOL_SPC_FCC:
		return {0.30, 0.11};
	case AVCOL_SPC_SMPTE240M:
		return {0.212, 0.087};
	case AVCOL_SPC_BT2020_NCL:
	case AVCOL_SPC_BT2020_CL:
		return {0.2627, 0.0593};
	default:
		return {0.2126, 0.0722};
	}
}

using FRows = std::array<std::array<double, 3>, 3>;

/** RGB in 0..1 to Y in 0..1 and chroma in -0.5..0.5. */
FRows RowsOf(AVColorSpace InSpace)
{
	if (InSpace == AVCOL_SPC_YCGCO)
	{
		return {{{0.25, 0.5, 0.25}, {-0.25, 0.5, -0.25}, {0.5, 0.0, -0.5}}};
	}
	const auto [Red, Blue] = WeightsOf(InSpace);
	const double Green = 1.0 - Red - Blue;
	const double ForCb = 0.5 / (1.0 - Blue);
	const double ForCr = 0.5 / (1.0 - Red);
	return {{{Red, Green, Blue}, {-Red * ForCb, -Green * ForCb, 0.5}, {0.5, -Green * ForCr, -Blue * ForCr}}};
}

} // namespace

AVColorSpace SettledMatrix(const AVFrame& InFrame)
{
	if (InFrame.colorspace != AVCOL_SPC_UNSPECIFIED && InFrame.colorspace != AVCOL_SPC_RGB)
	{
		return InFrame.colorspace;
	}
	return InFrame.width >= 1280 || InFrame.height > 576 ? AVCOL_SPC_BT709 : AVCOL_SPC_SMPTE170M;
}

FColorMatrix FColorMatrix::For(const AVFrame& InFrame, int32 InDepth)
{
	const FRows Rows = RowsOf(SettledMatrix(InFrame));
	const AVPixelFormat Format = static_cast<AVPixelFormat>(InFrame.format);
	const bool bFull = InFrame.color_range == AVCOL_RANGE_JPEG || WithoutImpliedRange(Format) != Format;
	const double Unit = 1 << (InDepth - 8);
	const double Full = (1 << InDepth) - 1;
	const double Scale[3] = {bFull ? Full : 219.0 * Unit, bFull ? Full : 224.0 * Unit, bFull ? Full : 224.0 * Unit};
	const double Offset[3] = {bFull ? 0.0 : 16.0 * Unit, 128.0 * Unit, 128.0 * Unit};
	const auto Fixed = [](double InValue)
	{
		return static_cast<int32>(std::lround(InValue * 65536.0 / 255.0));
	};
	FColorMatrix Matrix;
	for (size_t Component = 0; Component < 3; ++Component)
	{
		for (size_t Column = 0; Column < 3; ++Column)
		{
			Matrix.Row[Component][Column] = Fixed(Rows[Component][Column] * Scale[Component]);
		}
		Matrix.Row[Component][3] = Fixed(Offset[Component]);
	}
	return Matrix;
}

} // namespace Flitmark
