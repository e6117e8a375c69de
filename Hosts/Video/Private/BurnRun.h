#pragma once

#include "FrameConverter.h"
#include "FramePainter.h"
#include "OverlayClock.h"
#include "PacketReader.h"
#include "Video/VideoBurn.h"
#include "VideoEncoder.h"
#include "VideoOutput.h"

#include <deque>
#include <optional>
#include <string>

namespace Flitmark
{

/** One burn, from opening the input to renaming the output. */
class FBurnRun
{
public:
	FBurnRun(const FBurnOptions& InOptions, IBurnProgress& InProgress, const std::atomic<bool>& InCancel);

	FVideoResult Burn(IOverlaySource& InOverlay);

private:
	// Each returns false with Error set, or if the burn was canceled.
	bool Open();
	bool OpenInput();
	bool SkipToFrom(FOverlayClock& InClock);
	bool Pump(FOverlayClock& InClock);
	bool TakeFrame(FOverlayClock& InClock, FFramePtr InFrame);
	bool TakePacket(FPacketPtr InPacket);
	bool StartOutput(AVFrame& InFirst);
	bool Encode(FFramePtr InFrame);
	bool Drain();
	bool Finish();

	void Tell(const AVFrame& InFrame);
	void TellDamage();
	void TellShortness();
	void SayConversion(AVPixelFormat InSource, const FFormatPlan& InPlan);
	int64 Zero(const AVFrame& InFirst) const;
	FVideoFile File() const;
	int64 FromTicks() const;
	int64 ToTicks() const;
	bool Fail(std::string InError);

	const FBurnOptions& Options;
	IBurnProgress& Progress;
	const std::atomic<bool>& Cancel;
	std::string Error;

	const AVCodec* Codec = nullptr;
	std::unique_ptr<FVideoInput> Input;
	std::unique_ptr<FVideoDecoder> Decoder;
	std::unique_ptr<FVideoOutput> Output;
	std::unique_ptr<FVideoEncoder> Encoder;
	std::optional<FFramePainter> Painter;

	/** Only if the encoder accepts no format that comments can be blended into. */
	std::optional<FFrameConverter> LastConverter;

	/** Copied packets that arrived before the first frame, without which the output cannot start. */
	std::deque<FPacketPtr> Waiting;

	FPacketPtr Packet;
	FBurnState State;
	std::optional<int64> LastStamp;
	int64 LastEndTicks = 0;
	int64 Misplaced = 0;
};

} // namespace Flitmark
