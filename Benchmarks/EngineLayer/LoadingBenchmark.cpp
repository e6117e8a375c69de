#include "GeneratedDocument.h"
#include "Loading.h"
#include "LoadingPeak.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <malloc.h>
#include <string_view>

namespace
{
using FClock = std::chrono::steady_clock;

/** The peak of memory that loading may take, as a multiple of the file. */
constexpr double PeakLimit = 4.0;

double SecondsSince(FClock::time_point Begin)
{
	return std::chrono::duration<double>(FClock::now() - Begin).count();
}

/** Gives memory back, so that each load pays for fresh pages as the first one of a process does. */
void EndIteration(benchmark::State& State, double Seconds)
{
	State.SetIterationTime(Seconds);
	malloc_trim(0);
}

void ConvertStage(benchmark::State& State)
{
	const std::string Bytes = MakeCommentDocument(static_cast<int32>(State.range(0)));
	for (auto _ : State)
	{
		const FClock::time_point Begin = FClock::now();
		const FString Text = ToString(Bytes);
		EndIteration(State, SecondsSince(Begin));
	}
}

void ParseStage(benchmark::State& State)
{
	const FString Text = ToString(MakeCommentDocument(static_cast<int32>(State.range(0))));
	for (auto _ : State)
	{
		const FClock::time_point Begin = FClock::now();
		const TSharedPtr<FJsonValue> Root = Parse(Text);
		EndIteration(State, SecondsSince(Begin));
	}
}

void FileStage(benchmark::State& State)
{
	const FString Text = ToString(MakeCommentDocument(static_cast<int32>(State.range(0))));
	const TSharedPtr<FJsonValue> Root = Parse(Text);
	for (auto _ : State)
	{
		const FClock::time_point Begin = FClock::now();
		const FSchedule Schedule = FileRecords(Root);
		EndIteration(State, SecondsSince(Begin));
	}
}

/** From a file's bytes to filed records; fails beyond the limit of memory. */
void Load(benchmark::State& State)
{
	const std::string Bytes = MakeCommentDocument(static_cast<int32>(State.range(0)));
	for (auto _ : State)
	{
		const FClock::time_point Begin = FClock::now();
		const FString Text = ToString(Bytes);
		const FSchedule Schedule = FileRecords(Parse(Text));
		EndIteration(State, SecondsSince(Begin));
	}
	const double FileSize = static_cast<double>(Bytes.size());
	const double Peak = MeasureLoadingPeak(Bytes) / FileSize;
	State.counters["file_MB"] = FileSize / 1e6;
	State.counters["peak/file"] = Peak;
	if (Peak <= 0.0 || Peak >= PeakLimit)
	{
		State.SkipWithError("peak memory not measured, or beyond its limit");
	}
}

BENCHMARK(ConvertStage)->Arg(100'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ParseStage)->Arg(100'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FileStage)->Arg(100'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Load)->Arg(100'000)->Arg(1'000'000)->UseManualTime()->Unit(benchmark::kMillisecond);
} // namespace

int main(int ArgumentCount, char** Arguments)
{
	if (ArgumentCount == 3 && std::string_view(Arguments[1]) == "--peak-of")
	{
		return LoadAndPrintPeak(Arguments[2]);
	}
	benchmark::Initialize(&ArgumentCount, Arguments);
	if (benchmark::ReportUnrecognizedArguments(ArgumentCount, Arguments))
	{
		return 1;
	}
	benchmark::RunSpecifiedBenchmarks();
	return 0;
}
