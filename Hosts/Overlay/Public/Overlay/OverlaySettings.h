#pragma once

namespace Flitmark
{

/** How the viewer wants the comments. */
struct FOverlaySettings
{
	/** Factor on the comments' time; 1 is the module's own. */
	double Speed = 1.0;

	/** From 0 (invisible) to 1; for whoever draws the scene. */
	double Opacity = 1.0;
};

} // namespace Flitmark
