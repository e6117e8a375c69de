#pragma once

#include "CoreTypes.h"
#include "AvHandles.h"

namespace Flitmark
{

/**
 * Converts frames to another pixel format or size. Colors keep their matrix; RGB becomes limited-range YCbCr, with
 * tags to match.
 */
class FFrameConverter
{
public:
	FFrameConverter(AVPixelFormat InFormat, int32 InWidth, int32 InHeight)
		: Format(InFormat)
		, Width(InWidth)
		, Height(InHeight)
	{
	}

	bool Fits(const AVFrame& InFrame) const
	{
		return InFrame.format == Format && InFrame.width == Width && InFrame.height == Height;
	}

	/** The converted frame with the properties of the given one; empty if it cannot be converted. */
	FFramePtr Convert(const AVFrame& InFrame);

private:
	bool Prepare(const AVFrame& InFrame, const AVFrame& InTarget);

	AVPixelFormat Format;
	int32 Width;
	int32 Height;
	FSwsPtr Scaler;

	/** What the scaler was made for. */
	FFramePtr Kind;
};

} // namespace Flitmark
