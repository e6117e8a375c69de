#pragma once

#include "CoreTypes.h"
#include "AvHandles.h"
#include "VideoEncoder.h"
#include "Video/VideoOverlay.h"

#include <memory>
#include <string>

namespace Flitmark
{

/** Where encoded frames go: a container, or a file each. */
class IOverlaySink
{
public:
	virtual ~IOverlaySink() = default;

	/** Null with OutError set if the output's name or place is unfit. */
	static std::unique_ptr<IOverlaySink> Open(const FOverlayVideoOptions& InOptions, std::string& OutError);

	const AVCodec& Codec() const { return *Encoder; }

	/** Whether the container stores the codec's headers separately from the packets. */
	virtual bool WantsGlobalHeader() const = 0;

	// Each returns false with OutError set.
	virtual bool Start(const AVCodecContext& InEncoder, std::string& OutError) = 0;
	virtual bool Write(AVPacket& InPacket, std::string& OutError) = 0;
	virtual bool Finish(std::string& OutError) = 0;

	/** What the user should know when all is done; mostly empty. */
	virtual std::string Remark() const { return {}; }

protected:
	explicit IOverlaySink(const AVCodec& InCodec)
		: Encoder(&InCodec)
	{
	}

private:
	const AVCodec* Encoder;
};

} // namespace Flitmark
