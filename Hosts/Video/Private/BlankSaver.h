#pragma once

#include "CoreTypes.h"
#include "OverlaySink.h"
#include "VideoEncoder.h"

#include <deque>
#include <memory>
#include <optional>
#include <string>

namespace Flitmark
{

/**
 * Encodes a video most frames of which may be one and the same, blank frame. Where every frame is encoded by itself, the
 * blank one is encoded once and its packet repeated; elsewhere, it is encoded once a second and held in between.
 */
class FBlankSaver
{
public:
	/** InHold: how long a blank frame may be held, in the encoder's time base. All outlive this. */
	FBlankSaver(FVideoEncoder& InEncoder, IOverlaySink& InSink, bool bInEachAlone, int64 InHold);

	/** Takes the next frame. False with OutError set on failure. */
	bool Take(AVFrame& InFrame, bool bInBlank, std::string& OutError);

	/** Writes what is left. */
	bool Finish(std::string& OutError);

private:
	/** A frame on its way; those that repeat are not in the encoder. */
	struct FPending
	{
		int64 Stamp = 0;
		int64 Duration = 0;
		bool bBlank = false;
		bool bRepeats = false;
	};

	bool Encode(AVFrame& InFrame, bool bInBlank, std::string& OutError);
	bool HoldBlank(AVFrame& InFrame, std::string& OutError);
	bool Drain(std::string& OutError);
	/** Those before which everything is written. */
	bool WriteRepeats(std::string& OutError);

	FVideoEncoder& Encoder;
	IOverlaySink& Sink;
	const bool bEachAlone;
	const int64 Hold;

	FPacketPtr Packet;
	std::deque<FPending> Pending;

	/** The packet to repeat, once it is known, and whether it is on its way. */
	FPacketPtr BlankPacket;
	bool bBlankSent = false;

	/** The latest frame, if it is blank and was not encoded, and when one was last encoded in this stretch. */
	FFramePtr Held;
	std::optional<int64> LastBlank;
};

} // namespace Flitmark
