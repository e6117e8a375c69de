#pragma once

#include "CoreTypes.h"
#include "AvHandles.h"

#include <string>

namespace Flitmark
{

/** Why a stream cannot be copied into a container, with what it is; empty where it can. */
std::string CopyObstacle(const AVStream& InStream, const AVOutputFormat& InContainer);

/** The codec tag of a copied stream: its own where it means the same in the container, else 0 (the container's). */
uint32 TagFor(const AVCodecParameters& InStream, const AVOutputFormat& InContainer);

/** Tags, but for those that describe the source file rather than what is in it. */
void CopyMetadata(const AVDictionary* InSource, AVDictionary*& InTarget);

/** Tags, disposition, time base and the side data that stays true (rotation, HDR) of a stream. */
void CopyStreamProperties(const AVStream& InSource, AVStream& InTarget);

/** HDR side data that the codec holds in its frames rather than in the container. */
void CopyLight(const AVFrame& InSource, AVStream& InTarget);

void AddChapter(AVFormatContext& InTarget, const AVChapter& InSource, int64 InStart, int64 InEnd);

/**
 * Moves a packet's times so that InZero becomes 0. False for packets that are to be left out, because they start before
 * it; subtitles that reach over it are shortened instead.
 */
bool MoveToZero(AVPacket& InPacket, int64 InZero, bool bInCutBefore, AVMediaType InKind);

} // namespace Flitmark
