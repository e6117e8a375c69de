#pragma once

#include "AvHandles.h"
#include "Orientation.h"

#include <string>

namespace Flitmark
{

/** Writes a YCbCr frame as an upright 8-bit RGB PNG, atomically; false with OutError set on failure. */
bool WritePicture(const AVFrame& InFrame, const FOrientation& InOrientation, const std::string& InPath,
				  std::string& OutError);

} // namespace Flitmark
