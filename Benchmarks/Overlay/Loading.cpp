#include "BenchmarkStage.h"

#include "../EngineLayer/GeneratedDocument.h"
#include "Overlay/CellMeasure.h"
#include "Files/FileText.h"
#include "UI_Danmaku.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

namespace Flitmark
{

namespace
{

/** From a file's bytes to the overlay's schedule. */
void LoadIntoOverlay(benchmark::State& State)
{
	FCellMeasure Measure;
	const std::unique_ptr<FStage> Stage = MakeStage(FVector2f(1920.f, 1080.f), Measure);
	const std::string Bytes = MakeCommentDocument(static_cast<int32>(State.range(0)));
	for (auto _ : State)
	{
		// As a process's first load: no old schedule to be freed, and no memory at hand.
		Stage->GetOverlay().LoadDanmaku(FString());
		malloc_trim(0);
		const double Begin = ReadThreadTime();
		Stage->GetOverlay().LoadDanmaku(FromUtf8(Bytes));
		State.SetIterationTime(ReadThreadTime() - Begin);
	}
	State.counters["file_MB"] = static_cast<double>(Bytes.size()) / 1e6;
}

BENCHMARK(LoadIntoOverlay)->Arg(100'000)->Arg(1'000'000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

} // namespace Flitmark
