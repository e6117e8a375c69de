#include "BenchmarkStage.h"

#include "Files/FileText.h"
#include "Overlay/OverlayRunner.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace Flitmark
{

namespace
{

constexpr int64 NumSeconds = 120;
constexpr int64 TicksPerSecond = 10'000'000;

/** A jump, until the screen is full, in a document of so many comments in each second; their texts have been measured. */
void Jump(benchmark::State& State)
{
	const std::unique_ptr<FTextMeasure> Measure = MakeTextMeasure();
	std::string Error;
	const std::unique_ptr<FOverlayRunner> Runner = FOverlayRunner::Create(*Measure, 1, Error);
	if (!Runner)
	{
		std::fprintf(stderr, "%s\n", Error.c_str());
		std::exit(1);
	}
	Runner->SetView(FOverlayView::Cover(FVector2D(1920.0, 1080.0)));
	Runner->Load(FromUtf8(MakeSteadyDocument(static_cast<int32>(State.range(0)), NumSeconds)), {});
	double Slowest = 0.0;
	int64 Second = 0;
	const auto GoOn = [&]
	{
		Second = 40 + (Second + 31) % 80;
		Runner->SetMediaTime(Second * TicksPerSecond + TicksPerSecond / 3);
		const double Begin = ReadThreadTime();
		Runner->Jump();
		return ReadThreadTime() - Begin;
	};
	for (int32 Place = 0; Place < 80; ++Place)
	{
		GoOn();
	}
	for (auto _ : State)
	{
		const double Taken = GoOn();
		Slowest = std::max(Slowest, Taken);
		State.SetIterationTime(Taken);
	}
	State.counters["shown"] = Runner->GetNumComments();
	State.counters["slowest_ms"] = Slowest * 1e3;
}

BENCHMARK(Jump)->Arg(3)->Arg(25)->Arg(100)->Arg(1'000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

} // namespace Flitmark
