#pragma once

#include "AvHandles.h"
#include "Orientation.h"
#include "Video/OverlaySource.h"
#include "Video/VideoFile.h"

#include <atomic>
#include <optional>
#include <string>
#include <vector>

namespace Flitmark
{

/** A video file opened for reading: its streams, and the media times of its frames. */
class FVideoInput
{
public:
	/**
	 * Null with OutError set if the file cannot be read or has no video stream. InCancel, which outlives the input, makes
	 * every read end early; null where nothing does.
	 */
	static std::unique_ptr<FVideoInput> Open(const FVideoFile& InFile, std::string& OutError,
											 const std::atomic<bool>* InCancel = nullptr);

	AVFormatContext& Format() const { return *Handle; }
	AVStream& Video() const { return *Handle->streams[VideoIndex]; }
	FOrientation Orientation() const;
	FVideoShape Shape() const;

	/** Duration in seconds, according to the file; 0 if unknown. */
	double DurationSeconds() const;

	/** Media time of a timestamp of the video stream: since the start of the file, never negative. */
	int64 ToTicks(int64 InTimestamp) const { return ToTicks(InTimestamp, Video().time_base); }
	int64 ToTicks(int64 InTimestamp, AVRational InBase) const;

	/** The video stream's timestamp of a media time. */
	int64 ToTimestamp(int64 InTicks) const;

	/** Reads the next packet; false at the end. Damage is skipped and counted. */
	bool Read(AVPacket& OutPacket);
	int64 BrokenReads() const { return Broken; }

	/** Seeks to the last keyframe at or before a timestamp of the video stream; false if the file is not seekable. */
	bool Seek(int64 InTimestamp);

	/** Makes Read skip all streams but the video's. */
	void ReadVideoOnly();

private:
	int64 StartTicks() const;
	explicit FVideoInput(FBytesPtr InBytes, FInputPtr InHandle, unsigned InVideoIndex);

	/** What the handle reads from, unless it opened the file itself; goes after it. */
	FBytesPtr Bytes;
	FInputPtr Handle;
	unsigned VideoIndex;
	int64 Broken = 0;
};

/** The timestamps of a video's frames, in time order. */
struct FFrameTimes
{
	/** Media time, ticks. */
	std::vector<int64> Ticks;

	/** End of the last frame, in ticks; only if the whole file was read. */
	std::optional<int64> EndTicks;
};

/** Reads frame times from the file's packets, without decoding, at least up to InTicks or until InCancel. */
std::optional<FFrameTimes> ScanFrameTimes(const FVideoFile& InFile, int64 InTicks, std::string& OutError,
										  const std::atomic<bool>* InCancel = nullptr);

/** Frames per second of a stream; 0 where unknown. */
AVRational FrameRateOf(const AVStream& InStream);

/** Duration of a frame if its packet has none, in ticks. */
int64 UsualFrameTicks(const AVStream& InStream);

} // namespace Flitmark
