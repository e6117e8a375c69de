#pragma once

#include "CoreTypes.h"
#include "AvHandles.h"
#include "Video/VideoBurn.h"

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace Flitmark::Testing
{

/** A folder that is removed with the test. */
class FTestFolder
{
public:
	FTestFolder();
	~FTestFolder();
	std::string File(const std::string& InName) const { return (Path / InName).string(); }
	size_t CountFiles() const;

private:
	std::filesystem::path Path;
};

/**
 * Makes a video with ffmpeg, once per program and name (whose extension selects the container); returns its path.
 * InArguments: the arguments between "-y" and the output.
 */
std::string MakeVideo(const std::string& InName, const std::string& InArguments);

/** A text file next to these videos. */
std::string MakeText(const std::string& InName, const std::string& InText);

/** Two seconds of a test picture with sound, H.264 with B-frames. */
std::string PlainVideo();

/** Frames at uneven intervals. */
std::string UnevenVideo();

/** A sprite of one color, already premultiplied. */
std::shared_ptr<const FSprite> MakeBox(int32 InWidth, int32 InHeight, uint8 InRed, uint8 InGreen, uint8 InBlue,
									   uint8 InAlpha = 255);

/** A box that moves with the time steps it is given, so that a missing or repeated step shows. Records its calls. */
class FMovingBox final : public IOverlaySource
{
public:
	void Open(const FVideoShape& InShape) override { Shape = InShape; }
	void Advance(int64 InTicks, double InDeltaSeconds, std::vector<FPlacedSprite>& OutSprites) override;

	FVideoShape Shape;
	std::vector<int64> Times;
	double Way = 0.0;
	std::shared_ptr<const FSprite> Box = MakeBox(13, 9, 250, 250, 40);
	bool bVisible = true;
};

/** Collects messages; calls OnEach after every frame. */
class FTestProgress final : public IBurnProgress
{
public:
	void OnFrame(const FBurnState& InState) override;
	void OnMessage(const std::string& InMessage) override { Messages += InMessage + "\n"; }

	FBurnState Last;
	std::string Messages;
	std::function<void()> OnEach;
};

/** Burns without ever canceling. */
FVideoResult BurnQuietly(const FBurnOptions& InOptions, IOverlaySource& InOverlay, FTestProgress& InProgress);
FVideoResult BurnQuietly(const FBurnOptions& InOptions, IOverlaySource& InOverlay);

/** One packet of a file: its time in microseconds, and a checksum of its bytes. */
using FPacketMark = std::pair<int64, uint32>;

/** Each stream's packets by the stream's kind ("video", "audio", "subtitle"), in time order. */
std::map<std::string, std::vector<FPacketMark>> ReadPackets(const std::string& InPath);

/** The times of packets. */
std::vector<int64> TimesOf(const std::vector<FPacketMark>& InPackets);

/** All frames of a file's video. */
std::vector<FFramePtr> ReadFrames(const std::string& InPath);

/** A sample of a frame's plane, with 8 or 16 bits. */
int32 SampleAt(const AVFrame& InFrame, int32 InPlane, int32 InX, int32 InY);

/** Whether all samples of two frames are the same. */
bool SamePicture(const AVFrame& InFirst, const AVFrame& InSecond);

} // namespace Flitmark::Testing
