#include "Scene/FrameClock.h"
#include "Scene/FrameMeter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace Flitmark
{
namespace
{

/** Frames with the given true times, each requested at most InJitter seconds late. */
std::vector<double> RunClock(double InHertz, const std::vector<double>& InTimes, double InJitter)
{
	FFrameClock Clock;
	Clock.SetRefreshRate(InHertz);
	std::minstd_rand Random(7);
	std::uniform_real_distribution<double> Late(0.0, InJitter);
	std::vector<double> Steps;
	for (const double Time : InTimes)
	{
		Steps.push_back(Clock.Advance(100.0 + Time + Late(Random)));
	}
	return Steps;
}

std::vector<double> Even(double InStep, int InCount)
{
	std::vector<double> Times;
	for (int Index = 0; Index < InCount; ++Index)
	{
		Times.push_back(Index * InStep);
	}
	return Times;
}

TEST(FrameClock, GivesADisplaysEvenStepsAndTheRealTime)
{
	struct FCase
	{
		const char* Name;
		double Hertz;
		/** The frames as shown. */
		double Step;
		double Jitter;
		/** How far any step may be off, in seconds, once the clock has settled. */
		double Uneven;
	};
	const FCase Cases[] = {
		{"exact", 60.0, 1.0 / 60.0, 0.0, 1e-9},
		{"late by up to 6 ms", 60.0, 1.0 / 60.0, 0.006, 0.0006},
		{"each second period", 60.0, 2.0 / 60.0, 0.006, 0.0006},
		{"144 Hz", 144.0, 1.0 / 144.0, 0.002, 0.0003},
		{"a rate that is told wrong", 60.0, 1.001 / 60.0, 0.004, 0.0006},
		{"frames that do not follow the display", 60.0, 0.0205, 0.0, 1e-9},
		{"a rate that is none", std::nan(""), 1.0 / 60.0, 0.006, 0.0006},
	};
	for (const FCase& Case : Cases)
	{
		SCOPED_TRACE(Case.Name);
		const std::vector<double> Steps = RunClock(Case.Hertz, Even(Case.Step, 2000), Case.Jitter);
		EXPECT_EQ(Steps[0], 0.0);
		double Sum = 0.0;
		for (std::size_t Index = 1; Index < Steps.size(); ++Index)
		{
			Sum += Steps[Index];
			EXPECT_NEAR(Sum, static_cast<double>(Index) * Case.Step, 0.75 / 60.0 + 0.006) << Index;
			if (Index > 50)
			{
				EXPECT_NEAR(Steps[Index], Case.Step, Case.Uneven) << Index;
			}
		}
	}
}

TEST(FrameClock, ADroppedFrameIsMadeUpAtOnce)
{
	std::vector<double> Times = Even(1.0 / 60.0, 200);
	Times.erase(Times.begin() + 100, Times.begin() + 102);
	const std::vector<double> Steps = RunClock(60.0, Times, 0.004);
	EXPECT_NEAR(Steps[100], 3.0 / 60.0, 0.001);
	EXPECT_NEAR(Steps[101], 1.0 / 60.0, 0.001);
}

TEST(FrameClock, ALongGapIsOneFrame)
{
	FFrameClock Clock;
	Clock.SetRefreshRate(50.0);
	Clock.Advance(10.0);
	EXPECT_NEAR(Clock.Advance(10.02), 0.02, 1e-9);
	EXPECT_NEAR(Clock.Advance(3610.0), 0.02, 1e-9);
	EXPECT_NEAR(Clock.Advance(3610.02), 0.02, 1e-6) << "the gap is made up for later";
	EXPECT_EQ(Clock.Advance(3610.01), 0.0) << "time runs backwards";
	EXPECT_NEAR(Clock.Advance(3610.03), 0.02, 1e-6);
}

TEST(FrameMeter, LooksBackFiveSeconds)
{
	FFrameMeter Meter;
	Meter.AddWork(1.0);
	EXPECT_EQ(Meter.GetFrames().WorstWork, 0.0);
	for (int Frame = 0; Frame < 601; ++Frame)
	{
		Meter.BeginFrame(50.0 + Frame / 60.0);
		Meter.AddWork(Frame == 200 ? 0.5 : 0.001);
		Meter.AddWork(0.001);
		Meter.SetNumComments(Frame);
		if (Frame == 250)
		{
			EXPECT_NEAR(Meter.GetFrames().WorstWork, 0.501, 1e-9);
		}
	}
	const FFrameFigures Figures = Meter.GetFrames();
	EXPECT_NEAR(Figures.LastWork, 0.002, 1e-9);
	EXPECT_NEAR(Figures.MeanWork, 0.002, 1e-9);
	EXPECT_NEAR(Figures.WorstWork, 0.002, 1e-9) << "a frame of six seconds ago counts";
	EXPECT_NEAR(Figures.FramesPerSecond, 60.0, 0.1);
	EXPECT_EQ(Figures.NumComments, 600);
}

} // namespace
} // namespace Flitmark
