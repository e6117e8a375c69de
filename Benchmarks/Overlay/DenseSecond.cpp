#include "BenchmarkStage.h"

#include "Overlay/CellMeasure.h"
#include "Files/FileText.h"
#include "UI_Danmaku.h"

#include <benchmark/benchmark.h>

namespace Flitmark
{

namespace
{

constexpr int64 DenseAt = 5;
constexpr int64 EmptyAt = 9;

void ClearStage(FStage& Stage)
{
	Stage.GetOverlay().Empty();
	GoTo(Stage, EmptyAt);
	CollectGarbage();
}

void CountComments(benchmark::State& State)
{
	State.counters["per_comment"] =
		benchmark::Counter(static_cast<double>(State.range(0)),
						   benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

/** The one frame in which a second's comments are created, measured, placed or dropped. */
void DenseSecondOn(benchmark::State& State, FSlateFontMeasure& Measure)
{
	const std::unique_ptr<FStage> Stage = MakeStage(FVector2f(1920.f, 1080.f), Measure);
	const std::string Document = MakeDenseDocument(static_cast<int32>(State.range(0)), DenseAt, 24);
	Stage->GetOverlay().LoadDanmaku(FromUtf8(Document));
	GoTo(*Stage, DenseAt);
	for (auto _ : State)
	{
		ClearStage(*Stage);
		State.SetIterationTime(GoTo(*Stage, DenseAt, FrameTime));
	}
	CountComments(State);
}

void DenseSecondInCells(benchmark::State& State)
{
	FCellMeasure Measure;
	DenseSecondOn(State, Measure);
}

/** Texts that the text engine has measured before, as the hosts see to. */
void DenseSecondInFontsWarm(benchmark::State& State)
{
	const std::unique_ptr<FTextMeasure> Measure = MakeTextMeasure();
	DenseSecondOn(State, *Measure);
}

/** Texts that the text engine has never seen; their fonts and characters are known. */
void DenseSecondInFontsCold(benchmark::State& State)
{
	const std::string Document = MakeDenseDocument(static_cast<int32>(State.range(0)), DenseAt, 24);
	for (auto _ : State)
	{
		const std::unique_ptr<FTextMeasure> Measure = MakeTextMeasure();
		const std::unique_ptr<FStage> Stage = MakeStage(FVector2f(1920.f, 1080.f), *Measure);
		for (char16_t Character = 0x4E00; Character < 0x5600; ++Character)
		{
			Measure->GetEngine().Measure(std::u16string(1, Character), 24.f);
		}
		Stage->GetOverlay().LoadDanmaku(FromUtf8(Document));
		State.SetIterationTime(GoTo(*Stage, DenseAt, FrameTime));
	}
	CountComments(State);
}

BENCHMARK(DenseSecondInCells)->Arg(1'000)->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(DenseSecondInFontsWarm)->Arg(1'000)->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(DenseSecondInFontsCold)->Arg(1'000)->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

} // namespace Flitmark
