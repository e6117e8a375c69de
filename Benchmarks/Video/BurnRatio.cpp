// What comments add to the wall time of a burn: whole burns of one video with more and more comments, in turns, so that
// a machine that grows slower slows all of them. Prints the medians and their ratios to the burn without comments.

#include "SyntheticOverlay.h"
#include "Video/VideoBurn.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace
{

using namespace Flitmark;

class FQuiet final : public IBurnProgress
{
public:
	void OnFrame(const FBurnState& InState) override { Frames = InState.Frames; }
	void OnMessage(const std::string& InMessage) override { fprintf(stderr, "%s\n", InMessage.c_str()); }

	int64 Frames = 0;
};

struct FMeasure
{
	std::vector<double> Wall;
	std::vector<double> Processor;
	double Visible = 0.0;
	int64 Frames = 0;
};

double ProcessorSeconds()
{
	rusage Usage = {};
	getrusage(RUSAGE_SELF, &Usage);
	const auto Seconds = [](const timeval& InTime)
	{
		return static_cast<double>(InTime.tv_sec) + static_cast<double>(InTime.tv_usec) / 1e6;
	};
	return Seconds(Usage.ru_utime) + Seconds(Usage.ru_stime);
}

void MeasureOnce(const FBurnOptions& InOptions, const FCrowd& InCrowd, FMeasure& InMeasure)
{
	FSyntheticOverlay Overlay(InCrowd);
	FQuiet Progress;
	const std::atomic<bool> Cancel = false;
	const double Processor = ProcessorSeconds();
	const auto Start = std::chrono::steady_clock::now();
	const FVideoResult Result = Burn(InOptions, Overlay, Progress, Cancel);
	if (!Result.IsDone())
	{
		fprintf(stderr, "%s\n", Result.Error.c_str());
		std::exit(1);
	}
	const std::chrono::duration<double> Wall = std::chrono::steady_clock::now() - Start;
	InMeasure.Wall.push_back(Wall.count());
	InMeasure.Processor.push_back(ProcessorSeconds() - Processor);
	InMeasure.Visible = Overlay.AverageVisible();
	InMeasure.Frames = Progress.Frames;
}

double Median(std::vector<double> InValues)
{
	std::sort(InValues.begin(), InValues.end());
	return InValues[InValues.size() / 2];
}

} // namespace

int main(int InCount, char** InArguments)
{
	if (InCount < 3)
	{
		fprintf(stderr, "usage: %s VIDEO OUTPUT [RUNS]\n", InArguments[0]);
		return 2;
	}
	FBurnOptions Options;
	Options.Input = InArguments[1];
	Options.Output = InArguments[2];
	Options.Preset = "ultrafast";
	Options.Threads = 2;
	const int Runs = InCount > 3 ? std::max(1, std::atoi(InArguments[3])) : 5;
	std::vector<FMeasure> Measures(std::size(Crowds));
	for (int Run = 0; Run < Runs; ++Run)
	{
		for (size_t Index = 0; Index < Measures.size(); ++Index)
		{
			MeasureOnce(Options, Crowds[Index], Measures[Index]);
		}
	}
	printf("%-18s %9s %9s %8s %8s %7s\n", "", "visible", "wall s", "CPU s", "frames/s", "ratio");
	for (size_t Index = 0; Index < Measures.size(); ++Index)
	{
		const FMeasure& Each = Measures[Index];
		const double Wall = Median(Each.Wall);
		printf("%-18s %9.1f %9.3f %8.2f %8.1f %7.3f\n", Crowds[Index].Name, Each.Visible, Wall, Median(Each.Processor),
			   static_cast<double>(Each.Frames) / Wall, Wall / Median(Measures[0].Wall));
	}
	return 0;
}
