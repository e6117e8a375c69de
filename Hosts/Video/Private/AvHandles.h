#pragma once

#include "CoreTypes.h"
#include "Misc/Timespan.h"

extern "C"
{
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/buffer.h>
#include <libavutil/frame.h>
#include <libswscale/swscale.h>
}

#include <memory>

namespace Flitmark
{

/** Frees each FFmpeg object with its own function. */
struct FAvDelete
{
	void operator()(AVFrame* InFrame) const { av_frame_free(&InFrame); }
	void operator()(AVPacket* InPacket) const { av_packet_free(&InPacket); }
	void operator()(AVCodecContext* InContext) const { avcodec_free_context(&InContext); }
	void operator()(AVFormatContext* InContext) const { avformat_close_input(&InContext); }
	void operator()(SwsContext* InContext) const { sws_freeContext(InContext); }
	void operator()(AVBufferPool* InPool) const { av_buffer_pool_uninit(&InPool); }
	void operator()(AVIOContext* InBytes) const { avio_closep(&InBytes); }
};

using FFramePtr = std::unique_ptr<AVFrame, FAvDelete>;
using FPacketPtr = std::unique_ptr<AVPacket, FAvDelete>;
using FCodecPtr = std::unique_ptr<AVCodecContext, FAvDelete>;
using FInputPtr = std::unique_ptr<AVFormatContext, FAvDelete>;
using FSwsPtr = std::unique_ptr<SwsContext, FAvDelete>;
using FBytesPtr = std::unique_ptr<AVIOContext, FAvDelete>;
using FBufferPoolPtr = std::unique_ptr<AVBufferPool, FAvDelete>;

/** Throw std::bad_alloc if out of memory, like everything else here. */
FFramePtr MakeFrame();
FPacketPtr MakePacket();

/** Ticks of 100 nanoseconds, the overlay's unit of media time. */
using ETimespan::TicksPerSecond;
inline constexpr AVRational TickBase{1, TicksPerSecond};

} // namespace Flitmark
