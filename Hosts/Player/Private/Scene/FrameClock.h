#pragma once

namespace Flitmark
{

/** Seconds of the clock that all frames go by. */
double ReadSteadyClock();

/**
 * Turns the uneven times at which frames are asked for into the even ones at which a display shows them: a step near a
 * whole number of the display's periods becomes that number. What is given sums up to the real time.
 */
class FFrameClock
{
public:
	/** A longer step (a hidden window, a machine that slept) counts as one ordinary frame. Seconds. */
	static constexpr double LongestStep = 0.25;

	/** Frames a second of the display; what is no sensible rate counts as 60. */
	void SetRefreshRate(double InHertz);

	/** The frame at InNow, seconds of a steady clock: seconds since the frame before, 0 for the first one. */
	double Advance(double InNow);
	/** Whether the last step was longer than that. */
	bool IsLate() const { return bLate; }

private:
	double Snap(double InStep);

	double Period = 1.0 / 60.0;
	double Last = 0.0;
	bool bStarted = false;
	bool bLate = false;
	/** Real time that has not been given yet, in seconds; negative where more was given. */
	double Owed = 0.0;
	/** Mean of what the last steps were off a whole number of periods, in seconds. */
	double Drift = 0.0;
};

} // namespace Flitmark
