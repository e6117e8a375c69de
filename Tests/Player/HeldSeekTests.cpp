#include "Playback/HeldSeek.h"

#include <gtest/gtest.h>

namespace Flitmark
{

namespace
{

/** Seconds passed by holding a key down, with a keyboard that repeats it so many times a second after half a second. */
double Hold(double InSeconds, double InStep, double InDuration, double InRepeats)
{
	FHeldSeek Seek;
	double Passed = Seek.Press(InStep, false, 100.0, InDuration);
	for (double Time = 0.5; Time < InSeconds; Time += 1.0 / InRepeats)
	{
		Passed += Seek.Press(InStep, true, 100.0 + Time, InDuration);
	}
	return Passed;
}

TEST(HeldSeekTest, PressesCountInFull)
{
	FHeldSeek Seek;
	for (int Press = 0; Press < 10; ++Press)
	{
		EXPECT_EQ(Seek.Press(-5.0, false, 1.0 + 0.05 * Press, 0.0), -5.0);
	}
}

TEST(HeldSeekTest, HoldingGoesFasterBoundedAndWhateverTheKeyboard)
{
	constexpr double Film = 5400.0;
	for (const double Repeats : {25.0, 100.0})
	{
		EXPECT_NEAR(Hold(1.0, 5.0, Film, Repeats), 20.0, 5.0);
		EXPECT_NEAR(Hold(5.0, 5.0, Film, Repeats), 245.0, 45.0);
		EXPECT_NEAR(Hold(11.0, 5.0, Film, Repeats) - Hold(10.0, 5.0, Film, Repeats), 100.0, 20.0);
		EXPECT_EQ(Hold(5.0, -5.0, Film, Repeats), -Hold(5.0, 5.0, Film, Repeats));
	}
	// A short video takes as long to pass as it takes to see where one is.
	EXPECT_LT(Hold(5.0, 5.0, 180.0, 30.0), 130.0);
	EXPECT_LT(Hold(5.0, 5.0, 0.0, 30.0), 130.0);
}

} // namespace

} // namespace Flitmark
