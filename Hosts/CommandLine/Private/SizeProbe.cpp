#include "SizeProbe.h"

#include "Files/FileText.h"
#include "Misc/Timespan.h"
#include "UI_Danmaku.h"

namespace Flitmark
{

namespace
{

/** A document of one comment. */
FString MakeDocument(int64 InTicks, int32 InMode, int32 InLines, int32 InSize)
{
	std::string Text = R"({"datas":[{"danmaku_content":"x)";
	for (int32 Line = 1; Line < InLines; ++Line)
	{
		Text += R"(\nx)";
	}
	Text += R"(","danmaku_font_color":"#FFFFFF","danmaku_spawn_time":)" + std::to_string(InTicks) +
			R"(,"danmaku_mode":)" + std::to_string(InMode) + R"(,"danmaku_font_size":)" + std::to_string(InSize) +
			"}]}";
	return FromUtf8(Text);
}

} // namespace

std::unique_ptr<FSizeProbe> FSizeProbe::Create(FVector2f InCanvasSize, FSlateFontMeasure& InMeasure,
											   std::string& OutError)
{
	FStageOptions Options;
	Options.CanvasSize = InCanvasSize;
	Options.Measure = &InMeasure;
	std::unique_ptr<FStage> Stage = FStage::Create(Options, OutError);
	if (!Stage)
	{
		return nullptr;
	}
	Stage->Preroll();
	return std::unique_ptr<FSizeProbe>(new FSizeProbe(std::move(Stage)));
}

bool FSizeProbe::IsShown(int32 InMode, int32 InLines, int32 InSize)
{
	Second = 1 - Second;
	Stage->GetOverlay().LoadDanmaku(MakeDocument(Second * ETimespan::TicksPerSecond, InMode, InLines, InSize));
	Stage->SetMediaTime(Second * ETimespan::TicksPerSecond);
	Stage->RunFrame(0.f);
	std::vector<FPaintComment> Painted;
	Stage->CollectPaint(Painted);
	Stage->GetOverlay().Empty();
	return !Painted.empty();
}

int32 FSizeProbe::GetLargest(int32 InMode, int32 InLines)
{
	const auto [Found, bNew] = Known.try_emplace({InMode, InLines}, 0);
	if (bNew)
	{
		// A larger comment is higher, so what is too large stays too large.
		int32 Shown = 0;
		int32 Refused = MAX_int32;
		while (Refused - Shown > 1)
		{
			const int32 Middle = Shown + (Refused - Shown) / 2;
			(IsShown(InMode, InLines, Middle) ? Shown : Refused) = Middle;
		}
		Found->second = Shown;
	}
	return Found->second;
}

} // namespace Flitmark
