#pragma once

#include "AvHandles.h"
#include "Orientation.h"
#include "Video/OverlaySource.h"

#include <optional>
#include <string>
#include <vector>

namespace Flitmark
{

/** A video file opened for reading: its streams, and where its video's frames lie in media time. */
class FVideoInput
{
public:
	/** Null with OutError set where the file cannot be read or has no video stream. */
	static std::unique_ptr<FVideoInput> Open(const std::string& InPath, std::string& OutError);

	AVFormatContext& Format() const { return *Handle; }
	AVStream& Video() const { return *Handle->streams[VideoIndex]; }
	FOrientation Orientation() const;
	FVideoShape Shape() const;

	/** Seconds the file says it lasts; 0 where it does not. */
	double DurationSeconds() const;

	/** Media time of a timestamp of the video stream: since the start of the file, never negative. */
	int64 ToTicks(int64 InTimestamp) const { return ToTicks(InTimestamp, Video().time_base); }
	int64 ToTicks(int64 InTimestamp, AVRational InBase) const;

	/** The video stream's timestamp of a media time. */
	int64 ToTimestamp(int64 InTicks) const;

	/** Reads on; false at the end. Damage is passed over and counted. */
	bool Read(AVPacket& OutPacket);
	int64 BrokenReads() const { return Broken; }

	/** Goes to the last keyframe at or before a timestamp of the video stream; false where the file cannot seek. */
	bool Seek(int64 InTimestamp);

	/** Leaves all streams but the video's out of what Read gives. */
	void ReadVideoOnly();

private:
	int64 StartTicks() const;
	explicit FVideoInput(FInputPtr InHandle, unsigned InVideoIndex);

	FInputPtr Handle;
	unsigned VideoIndex;
	int64 Broken = 0;
};

/** The timestamps of a video's frames, in order of time. */
struct FFrameTimes
{
	/** Media time, ticks. */
	std::vector<int64> Ticks;

	/** End of the last frame, ticks; only where all of the file was read. */
	std::optional<int64> EndTicks;
};

/** Reads the times of frames out of the file's packets, without decoding, at least of all up to InTicks. */
std::optional<FFrameTimes> ScanFrameTimes(const std::string& InPath, int64 InTicks, std::string& OutError);

/** Frames per second of a stream; 0 where unknown. */
AVRational FrameRateOf(const AVStream& InStream);

/** Time that one frame is shown where a packet does not say, in ticks. */
int64 UsualFrameTicks(const AVStream& InStream);

} // namespace Flitmark
