#pragma once

#include "CoreTypes.h"
#include "AvHandles.h"

#include <string>

namespace Flitmark
{

/** Why a stream cannot be copied into a container, with a description of it; empty if it can. */
std::string CopyObstacle(const AVStream& InStream, const AVOutputFormat& InContainer);

/** The codec tag of a copied stream: its own if it means the same in the container, else 0 (the container's). */
uint32 TagFor(const AVCodecParameters& InStream, const AVOutputFormat& InContainer);

/** Tags, except those that describe the source file rather than its content. */
void CopyMetadata(const AVDictionary* InSource, AVDictionary*& InTarget);

/** Tags, disposition, time base, and the side data that remains valid (rotation, HDR) of a stream. */
void CopyStreamProperties(const AVStream& InSource, AVStream& InTarget);

/** HDR side data that the codec stores in its frames rather than in the container. */
void CopyLight(const AVFrame& InSource, AVStream& InTarget);

void AddChapter(AVFormatContext& InTarget, const AVChapter& InSource, int64 InStart, int64 InEnd);

/**
 * Shifts a packet's times so that InZero becomes 0. False for packets to drop because they start before
 * it; subtitles that extend past it are shortened instead.
 */
bool MoveToZero(AVPacket& InPacket, int64 InZero, bool bInCutBefore, AVMediaType InKind);

} // namespace Flitmark
