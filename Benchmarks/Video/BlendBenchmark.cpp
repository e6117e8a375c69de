// What painting a frame's comments costs: 1080p, 8 and 10 bits, from a frame that the decoder still holds.

#include "FramePainter.h"
#include "SyntheticOverlay.h"

#include <benchmark/benchmark.h>

namespace
{

using namespace Flitmark;

void PaintFrames(benchmark::State& InState, AVPixelFormat InFormat)
{
	const FCrowd& Crowd = Crowds[InState.range(0)];
	InState.SetLabel(Crowd.Name);
	FFramePtr Held = MakeFrame();
	Held->format = InFormat;
	Held->width = 1920;
	Held->height = 1080;
	if (av_frame_get_buffer(Held.get(), 0) < 0)
	{
		InState.SkipWithError("no memory");
		return;
	}
	FSyntheticOverlay Overlay(Crowd);
	Overlay.Open({Held->width, Held->height, 1.0, 30.0});
	FFramePainter Painter(FOrientation{});
	Painter.Start(InFormat, Held->width, Held->height);
	std::vector<FPlacedSprite> Sprites;
	int64 Frame = 0;
	for (auto Unused : InState)
	{
		InState.PauseTiming();
		Sprites.clear();
		Overlay.Advance(++Frame * 333'333, 1.0 / 30.0, Sprites);
		FFramePtr Shared(av_frame_clone(Held.get()));
		InState.ResumeTiming();
		benchmark::DoNotOptimize(Painter.Paint(std::move(Shared), Sprites));
	}
}

} // namespace

BENCHMARK_CAPTURE(PaintFrames, yuv420p, AV_PIX_FMT_YUV420P)->DenseRange(0, 3)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PaintFrames, yuv420p10, AV_PIX_FMT_YUV420P10)->DenseRange(0, 3)->Unit(benchmark::kMicrosecond);
BENCHMARK_MAIN();
