#pragma once

#include "AvHandles.h"
#include "Blender.h"
#include "FrameConverter.h"

#include <optional>
#include <span>

namespace Flitmark
{

/**
 * Paints comments on decoded frames. All frames come out in one size and one pixel format that comments can be
 * blended into, which are the first frame's own where possible.
 */
class FFramePainter
{
public:
	explicit FFramePainter(const FOrientation& InOrientation)
		: Orientation(InOrientation)
	{
	}

	/** InFormat: the format frames are converted to before blending; must be one FPixelLayout or FAlphaLayout knows. */
	void Start(AVPixelFormat InFormat, int32 InWidth, int32 InHeight);

	/** The painted frame; InFrame itself if nothing had to change. Null if a frame cannot be converted. */
	FFramePtr Paint(FFramePtr InFrame, std::span<const FPlacedSprite> InSprites);

private:
	void PrepareBlender(const AVFrame& InFrame);
	FFramePtr WritableCopy(const AVFrame& InFrame);

	FOrientation Orientation;
	std::optional<FFrameConverter> Converter;
	std::unique_ptr<IBlender> Blender;

	/** The color tags that the blender was made for. */
	AVColorSpace Space = AVCOL_SPC_UNSPECIFIED;
	AVColorRange Range = AVCOL_RANGE_UNSPECIFIED;

	/** Buffers of the copies: fresh memory for every frame would cost more in page faults than the copying. */
	FBufferPoolPtr Pool;
	size_t PoolSize = 0;
};

} // namespace Flitmark
