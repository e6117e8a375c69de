#include "Scene/FrameMeter.h"

#include <algorithm>
#include <ctime>

namespace Flitmark
{

namespace
{

/** This thread's processor time, in seconds. */
double ReadThreadTime()
{
	timespec Now = {};
	clock_gettime(CLOCK_THREAD_CPUTIME_ID, &Now);
	return static_cast<double>(Now.tv_sec) + static_cast<double>(Now.tv_nsec) * 1e-9;
}

} // namespace

FMeteredWork::FMeteredWork(FFrameMeter& InMeter)
	: Meter(InMeter)
	, Begin(ReadThreadTime())
{
}

FMeteredWork::~FMeteredWork()
{
	Meter.AddWork(ReadThreadTime() - Begin);
}

void FFrameMeter::BeginFrame(double InNow)
{
	Frames.push_back({InNow, 0.0});
	while (Frames.front().Begin < InNow - Span)
	{
		Frames.pop_front();
	}
}

void FFrameMeter::AddWork(double InSeconds)
{
	if (!Frames.empty())
	{
		Frames.back().Work += InSeconds;
	}
}

FFrameFigures FFrameMeter::GetFrames() const
{
	FFrameFigures Figures;
	Figures.NumComments = NumComments;
	if (Frames.empty())
	{
		return Figures;
	}
	Figures.LastWork = Frames.back().Work;
	double Sum = 0.0;
	for (const FFrame& Frame : Frames)
	{
		Sum += Frame.Work;
		Figures.WorstWork = std::max(Figures.WorstWork, Frame.Work);
	}
	Figures.MeanWork = Sum / static_cast<double>(Frames.size());
	// Only frames of the last second: an old rate is worth nothing.
	const double End = Frames.back().Begin;
	const auto First = std::ranges::find_if(Frames, [End](const FFrame& Frame) { return Frame.Begin >= End - 1.0; });
	if (First->Begin < End)
	{
		Figures.FramesPerSecond = static_cast<double>(Frames.end() - First - 1) / (End - First->Begin);
	}
	return Figures;
}

} // namespace Flitmark
