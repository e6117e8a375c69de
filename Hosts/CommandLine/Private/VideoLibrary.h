#pragma once

#include "Video/VideoBurn.h"
#include "Video/VideoOverlay.h"
#include "Video/VideoProbe.h"
#include "Video/VideoShot.h"

#include <string>

namespace Flitmark
{

/** The video host's functions. They bring a hundred libraries along, which only the commands that need them load. */
struct FVideoLibrary
{
	decltype(&Flitmark::Probe) Probe;
	decltype(&Flitmark::Burn) Burn;
	decltype(&Flitmark::Shot) Shot;
	decltype(&Flitmark::DrawOverlay) DrawOverlay;
};

/** Null with OutError set where the library cannot be loaded. */
const FVideoLibrary* LoadVideoLibrary(std::string& OutError);

} // namespace Flitmark
