#include "BenchmarkStage.h"

#include "Overlay/CellMeasure.h"
#include "Components/CanvasPanel.h"
#include "Files/FileText.h"
#include "UI_Danmaku.h"

#include <benchmark/benchmark.h>

#include <algorithm>

namespace Flitmark
{

namespace
{

constexpr int32 NumAlive = 2'000;
/** Frames that are timed, four seconds after the first comments: long before any of them ends. */
constexpr int32 NumFrames = 60;

/** A canvas of 1,500 scroll lanes: a first second fills them, a later one stands behind it. */
std::unique_ptr<FStage> MakeFullStage(FSlateFontMeasure& Measure)
{
	std::unique_ptr<FStage> Stage = MakeStage(FVector2f(1920.f, 30'300.f), Measure);
	for (const int64 Second : {0, 4})
	{
		// Small enough for one lane each.
		Stage->GetOverlay().LoadDanmaku(FromUtf8(MakeDenseDocument(Second == 0 ? 1'500 : 500, Second, 9)));
		GoTo(*Stage, Second);
		for (int32 Frame = 0; Second == 0 && Frame < 4 * 60; ++Frame)
		{
			Stage->RunFrame(FrameTime);
		}
	}
	return Stage;
}

/** Frames in which nothing starts or ends: every comment moves. */
void FrameLogic(benchmark::State& State)
{
	FCellMeasure Measure;
	double Slowest = 0.0;
	int32 Fewest = MAX_int32;
	for (auto _ : State)
	{
		const std::unique_ptr<FStage> Stage = MakeFullStage(Measure);
		double Seconds = 0.0;
		for (int32 Frame = 0; Frame < NumFrames; ++Frame)
		{
			const double Taken = GoTo(*Stage, 4, FrameTime);
			Seconds += Taken;
			Slowest = std::max(Slowest, Taken);
		}
		Fewest = std::min(Fewest, Stage->GetCanvas().GetChildrenCount());
		State.SetIterationTime(Seconds / NumFrames);
	}
	State.counters["alive"] = Fewest;
	State.counters["slowest_ms"] = Slowest * 1e3;
	if (Fewest < NumAlive)
	{
		State.SkipWithError("fewer comments on the canvas than are to be timed");
	}
}

BENCHMARK(FrameLogic)->UseManualTime()->Iterations(20)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace Flitmark
