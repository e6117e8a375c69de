#include "BenchmarkStage.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <random>

namespace Flitmark
{

namespace
{

constexpr int64 TicksPerSecond = 10'000'000;

void AppendContent(std::string& Document, std::minstd_rand& Random)
{
	const bool bLatin = Random() % 2 == 0;
	const std::uint_fast32_t Length = 5 + Random() % 26;
	for (std::uint_fast32_t Index = 0; Index < Length; ++Index)
	{
		if (bLatin)
		{
			Document += Index % 6 == 5 ? ' ' : static_cast<char>('a' + Random() % 26);
			continue;
		}
		// The few thousand ideographs that are in use.
		const std::uint_fast32_t CodePoint = 0x4E00 + Random() % 0x800;
		Document += static_cast<char>(0xE0 | CodePoint >> 12);
		Document += static_cast<char>(0x80 | (CodePoint >> 6 & 0x3F));
		Document += static_cast<char>(0x80 | (CodePoint & 0x3F));
	}
}

void AppendComment(std::string& Document, std::minstd_rand& Random, int64 Second, int32 Mode, int32 FontSize)
{
	Document += "{\"danmaku_spawn_time\":" + std::to_string(Second * TicksPerSecond) + ",\"danmaku_content\":\"";
	AppendContent(Document, Random);
	Document += "\",\"danmaku_mode\":" + std::to_string(Mode) +
				",\"danmaku_font_color\":\"#FFFFFF\",\"danmaku_font_size\":" + std::to_string(FontSize) + "}";
}

} // namespace

std::unique_ptr<FStage> MakeStage(FVector2f CanvasSize, FSlateFontMeasure& Measure)
{
	FStageOptions Options;
	Options.CanvasSize = CanvasSize;
	Options.Measure = &Measure;
	std::string Error;
	std::unique_ptr<FStage> Stage = FStage::Create(Options, Error);
	if (Stage == nullptr)
	{
		std::fprintf(stderr, "%s\n", Error.c_str());
		std::exit(1);
	}
	Stage->Preroll();
	return Stage;
}

std::unique_ptr<FTextMeasure> MakeTextMeasure()
{
	std::string Error;
	std::unique_ptr<FTextMeasure> Measure = FTextMeasure::Create({}, Error);
	if (Measure == nullptr)
	{
		std::fprintf(stderr, "%s\n", Error.c_str());
		std::exit(1);
	}
	return Measure;
}

double ReadThreadTime()
{
	timespec Now = {};
	clock_gettime(CLOCK_THREAD_CPUTIME_ID, &Now);
	return static_cast<double>(Now.tv_sec) + static_cast<double>(Now.tv_nsec) * 1e-9;
}

double GoTo(FStage& Stage, int64 Second, float DeltaTime)
{
	Stage.SetMediaTime(Second * TicksPerSecond);
	const double Begin = ReadThreadTime();
	Stage.RunFrame(DeltaTime);
	return ReadThreadTime() - Begin;
}

std::string MakeDenseDocument(int32 Count, int64 Second, int32 FontSize)
{
	std::minstd_rand Random(20240305);
	std::string Document = "{\"datas\":[";
	for (int32 Index = 0; Index < Count; ++Index)
	{
		Document += Index == 0 ? "" : ",";
		AppendComment(Document, Random, Second, 0, FontSize);
	}
	return Document + "]}";
}

std::string MakeSteadyDocument(int32 PerSecond, int64 NumSeconds)
{
	std::minstd_rand Random(20240305);
	std::string Document = "{\"datas\":[";
	for (int64 Index = 0; Index < NumSeconds * PerSecond; ++Index)
	{
		Document += Index == 0 ? "" : ",";
		// Three in four scroll.
		const std::uint_fast32_t Kind = Random() % 8;
		AppendComment(Document, Random, Index / PerSecond, Kind < 6 ? 0 : static_cast<int32>(Kind) - 5, 24);
	}
	return Document + "]}";
}

} // namespace Flitmark
