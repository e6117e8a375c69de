#pragma once

namespace Flitmark
{

/** The current time of the clock that all frames use, in seconds. */
double ReadSteadyClock();

/**
 * Turns the uneven times at which frames are requested into the even ones at which a display shows them: a step near a
 * whole number of display periods becomes that number. The steps add up to real time.
 */
class FFrameClock
{
public:
	/** In seconds. A longer step (a hidden window, a sleeping machine) counts as one ordinary frame. */
	static constexpr double LongestStep = 0.25;

	/** The display's frames per second; anything but a sensible rate counts as 60. */
	void SetRefreshRate(double InHertz);

	/**
	 * Starts the frame at InNow, seconds of a steady clock; returns the seconds since the previous frame, 0 for the
	 * first.
	 */
	double Advance(double InNow);
	/** Whether the last step was longer than LongestStep. */
	bool IsLate() const { return bLate; }

private:
	double Snap(double InStep);

	double Period = 1.0 / 60.0;
	double Last = 0.0;
	bool bStarted = false;
	bool bLate = false;
	/** Real time not yet accounted for, in seconds; negative if too much was. */
	double Owed = 0.0;
	/** Mean deviation of the last steps from a whole number of periods, in seconds. */
	double Drift = 0.0;
};

} // namespace Flitmark
