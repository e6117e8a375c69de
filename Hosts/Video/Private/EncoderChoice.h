#pragma once

#include "AvHandles.h"

#include <string>

namespace Flitmark
{

/** Whether a video has transparency, which its container may say rather than its pixel format. */
bool HasAlpha(const AVStream& InStream);

/**
 * The encoder of that FFmpeg name or, if empty, the one usual for the container that a path's extension names; with
 * bInAlpha, one that keeps transparency, if there is one for that container. Null with OutError set if there is none.
 */
const AVCodec* ChooseEncoder(const std::string& InName, const std::string& InPath, bool bInAlpha,
							 std::string& OutError);

/** Why a video made by this encoder in the container of InPath loses its transparency; empty if it keeps it. */
std::string AlphaObstacle(const AVCodec& InCodec, const std::string& InPath);

/** What to use instead of a container that cannot hold an encoder's video, with the encoder or the container kept. */
std::string OtherContainers(const AVCodec& InCodec, const AVOutputFormat& InContainer);

} // namespace Flitmark
