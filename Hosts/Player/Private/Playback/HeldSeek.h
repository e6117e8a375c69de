#pragma once

namespace Flitmark
{

/** How far a key seeks that may be held down: in steps that the eye can follow, wider the longer it is held. */
class FHeldSeek
{
public:
	/**
	 * Seconds to seek by, for a press or its repeat by the keyboard; 0 where a repeat comes too soon. InStep: a single
	 * press's, negative to go back. InNow: seconds on any clock. InDuration: the video's, 0 if unknown.
	 */
	double Press(double InStep, bool bInRepeat, double InNow, double InDuration);

private:
	double Begin = 0.0;
	double Last = 0.0;
};

} // namespace Flitmark
