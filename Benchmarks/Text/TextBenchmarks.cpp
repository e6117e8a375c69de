#include "Text/TextEngine.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <random>
#include <string>
#include <vector>

namespace Flitmark
{

namespace
{

constexpr float SizePoints = 24.0F;
constexpr FTextScale OneToOne = {1.0, 1.0};

FTextEngine& GetEngine()
{
	static const std::unique_ptr<FTextEngine> Engine = []
	{
		std::string Error;
		std::unique_ptr<FTextEngine> Made = FTextEngine::Create({}, Error);
		if (!Made)
		{
			std::fprintf(stderr, "no text engine: %s\n", Error.c_str());
			std::exit(1);
		}
		return Made;
	}();
	return *Engine;
}

/** Comments of 15 characters as people write them: two thirds ideographs and kana, a Latin word, a run of digits. */
class FCommentMaker
{
public:
	std::u16string Make()
	{
		std::u16string Text = Draw(u"的一是不了人我在有他这中大来上国个到说们为子和你地出道也时年得就那要下以生会", 5);
		Text += Draw(u"abcdefghijklmnopqrstuvwxyz", 4);
		Text += Draw(u"0123456789!?", 2);
		Text += Draw(u"あいうえおかきくけこさしすせそたちつてとなにぬねの、。！", 4);
		return Text;
	}

private:
	std::u16string Draw(std::u16string_view InAlphabet, std::size_t InCount)
	{
		std::u16string Text;
		for (std::size_t Index = 0; Index < InCount; ++Index)
		{
			Text += InAlphabet[Random() % InAlphabet.size()];
		}
		return Text;
	}

	std::mt19937 Random;
};

std::vector<std::u16string> MakeComments(std::size_t InCount)
{
	FCommentMaker Maker;
	std::vector<std::u16string> Comments(InCount);
	for (std::u16string& Comment : Comments)
	{
		Comment = Maker.Make();
	}
	return Comments;
}

/** Comments never seen before, of characters that were: 4^26 words leave no repetition to speak of. */
void MeasureUnseen(benchmark::State& InState)
{
	FTextEngine& Engine = GetEngine();
	static FCommentMaker Maker;
	std::vector<std::u16string> Comments;
	std::size_t Next = 0;
	for (auto _ : InState)
	{
		if (Next == Comments.size())
		{
			InState.PauseTiming();
			Comments.resize(10000);
			for (std::u16string& Comment : Comments)
			{
				Comment = Maker.Make();
			}
			Next = 0;
			InState.ResumeTiming();
		}
		benchmark::DoNotOptimize(Engine.Measure(Comments[Next++], SizePoints));
	}
}
BENCHMARK(MeasureUnseen);

/** Comments that were measured ahead. */
void MeasureSeen(benchmark::State& InState)
{
	FTextEngine& Engine = GetEngine();
	static const std::vector<std::u16string> Comments = MakeComments(10000);
	for (const std::u16string& Comment : Comments)
	{
		Engine.Measure(Comment, SizePoints);
	}
	std::size_t Next = 0;
	for (auto _ : InState)
	{
		benchmark::DoNotOptimize(Engine.Measure(Comments[Next], SizePoints));
		Next = Next + 1 < Comments.size() ? Next + 1 : 0;
	}
}
BENCHMARK(MeasureSeen)->ThreadRange(1, 2)->UseRealTime();

void RasterizeDrawnGlyphs(benchmark::State& InState)
{
	FTextEngine& Engine = GetEngine();
	static const std::vector<std::u16string> Comments = MakeComments(1000);
	for (const std::u16string& Comment : Comments)
	{
		Engine.Rasterize(Comment, SizePoints, {}, OneToOne);
	}
	std::size_t Next = 0;
	for (auto _ : InState)
	{
		benchmark::DoNotOptimize(Engine.Rasterize(Comments[Next], SizePoints, {}, OneToOne));
		Next = Next + 1 < Comments.size() ? Next + 1 : 0;
	}
}
BENCHMARK(RasterizeDrawnGlyphs)->ThreadRange(1, 2)->UseRealTime();

/** One ideograph a sprite; a size of its own each time round, so that no drawing is found. */
void RasterizeNewGlyph(benchmark::State& InState)
{
	FTextEngine& Engine = GetEngine();
	static double Scale = 1.0;
	constexpr char16_t First = 0x4e00;
	constexpr char16_t Count = 5000;
	char16_t Offset = 0;
	for (auto _ : InState)
	{
		const char16_t Ideograph = static_cast<char16_t>(First + Offset);
		benchmark::DoNotOptimize(Engine.Rasterize({&Ideograph, 1}, SizePoints, {}, {Scale, Scale}));
		Offset = static_cast<char16_t>(Offset + 1);
		if (Offset == Count)
		{
			Offset = 0;
			Scale += 1.0 / 512.0;
		}
	}
	Scale += 1.0 / 512.0;
}
BENCHMARK(RasterizeNewGlyph);

/** Emoji are scaled from large bitmaps. */
void RasterizeNewEmoji(benchmark::State& InState)
{
	FTextEngine& Engine = GetEngine();
	static double Scale = 1.0;
	constexpr char16_t Count = 60;
	char16_t Offset = 0;
	for (auto _ : InState)
	{
		const char16_t Emoji[2] = {0xd83d, static_cast<char16_t>(0xde00 + Offset)};
		benchmark::DoNotOptimize(Engine.Rasterize({Emoji, 2}, SizePoints, {}, {Scale, Scale}));
		Offset = static_cast<char16_t>((Offset + 1) % Count);
		Scale += Offset == 0 ? 1.0 / 2048.0 : 0.0;
	}
}
BENCHMARK(RasterizeNewEmoji);

} // namespace

} // namespace Flitmark

BENCHMARK_MAIN();
