#include "BenchmarkStage.h"
#include "Files/FileText.h"
#include "Scene/Overlay.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>

namespace Flitmark
{

namespace
{

constexpr int32 DenseAt = 5;
constexpr int32 EmptyAt = 9;

std::unique_ptr<FOverlay> MakeOverlay(const std::string& InDocument)
{
	std::string Error;
	std::unique_ptr<FOverlay> Overlay = FOverlay::Create(Error);
	if (Overlay == nullptr)
	{
		std::fprintf(stderr, "%s\n", Error.c_str());
		std::exit(1);
	}
	Overlay->SetView(QSizeF(1920.0, 1080.0), 1.0);
	FString Text = FromUtf8(InDocument);
	FCommentDocument Document = FCommentDocument::Read(Text);
	// As the worker that measures ahead leaves it.
	for (const FCommentEntry& Entry : Document.GetEntries())
	{
		Overlay->GetEngine().Measure(Document.GetText(Entry), static_cast<float>(Entry.FontSize));
	}
	Overlay->Load(std::move(Text), std::move(Document));
	return Overlay;
}

/** Comments that scroll over some ten seconds, as many as are asked for on the canvas at once. */
std::string MakeCrowd(int32 InCount)
{
	constexpr int32 NumSeconds = 6;
	std::string Crowd;
	for (int32 Second = 0; Second < NumSeconds; ++Second)
	{
		const std::string Text = MakeDenseDocument(InCount / NumSeconds, Second, 8);
		const std::size_t Begin = Text.find('[') + 1;
		Crowd += (Crowd.empty() ? "" : ",") + Text.substr(Begin, Text.rfind(']') - Begin);
	}
	return "{\"datas\":[" + Crowd + "]}";
}

/** A frame in which comments only move. */
void CrowdedFrame(benchmark::State& State)
{
	const std::unique_ptr<FOverlay> Overlay = MakeOverlay(MakeCrowd(static_cast<int32>(State.range(0))));
	for (int Frame = 0; Frame < 6 * 60; ++Frame)
	{
		Overlay->SetMediaTime(Frame / 60.0);
		Overlay->RunFrame(FrameTime);
	}
	for (auto _ : State)
	{
		// They stay where they are, so that none leaves meanwhile.
		Overlay->RunFrame(0.0);
	}
	State.counters["on_canvas"] = static_cast<double>(Overlay->GetScene().GetComments().size());
}

/** The frame in which a second's comments start, while the ones before are still there. */
void DenseSecondInThePlayer(benchmark::State& State)
{
	const std::unique_ptr<FOverlay> Overlay =
		MakeOverlay(MakeDenseDocument(static_cast<int32>(State.range(0)), DenseAt, 12));
	for (auto _ : State)
	{
		Overlay->SetMediaTime(EmptyAt);
		Overlay->Jump();
		CollectGarbage();
		Overlay->SetMediaTime(DenseAt);
		const double Begin = ReadThreadTime();
		Overlay->RunFrame(FrameTime);
		State.SetIterationTime(ReadThreadTime() - Begin);
	}
}

BENCHMARK(CrowdedFrame)->Arg(3'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(DenseSecondInThePlayer)->Arg(1'000)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

} // namespace Flitmark
