#include "StageOverlay.h"

#include "UI_Danmaku.h"

namespace Flitmark
{

namespace
{

/** The canvas's height unless the user scales it, so that comments look the same on every video. */
constexpr double UsualCanvasHeight = 1080.0;

} // namespace

FCanvasView FCanvasView::Cover(const FVideoShape& InShape, std::optional<double> InUnitsPerPixel)
{
	const double Height = InUnitsPerPixel ? InShape.Height * *InUnitsPerPixel : UsualCanvasHeight;
	const double Width = InShape.Width * InShape.PixelAspect * Height / InShape.Height;
	return {FVector2f(static_cast<float>(Width), static_cast<float>(Height)),
			{InShape.Width / Width, InShape.Height / Height}};
}

FStageOverlay::FStageOverlay(FCommentsFile InComments, std::optional<double> InUnitsPerPixel, FTextMeasure& InMeasure)
	: UnitsPerPixel(InUnitsPerPixel)
	, Document(std::move(InComments.Text))
	, Sprites(InMeasure.GetEngine())
	, Ahead(InMeasure.GetEngine(), std::move(InComments.Document))
{
}

std::unique_ptr<FStageOverlay> FStageOverlay::Create(FCommentsFile InComments, std::optional<double> InUnitsPerPixel,
													 uint32 InSeed, FTextMeasure& InMeasure, std::string& OutError)
{
	std::unique_ptr<FStageOverlay> Overlay(new FStageOverlay(std::move(InComments), InUnitsPerPixel, InMeasure));
	FStageOptions Options;
	Options.Seed = InSeed;
	Options.Measure = &InMeasure;
	Overlay->Stage = FStage::Create(Options, OutError);
	return Overlay->Stage ? std::move(Overlay) : nullptr;
}

void FStageOverlay::Open(const FVideoShape& InShape)
{
	const FCanvasView View = FCanvasView::Cover(InShape, UnitsPerPixel);
	Sprites.SetView(FVector2D(View.CanvasSize.X, View.CanvasSize.Y), View.Scale);
	Stage->SetCanvasSize(View.CanvasSize);
	Stage->Preroll();
	Stage->GetOverlay().LoadDanmaku(Document);
	Document = FString();
	Ahead.SetMediaTime(0);
}

void FStageOverlay::Advance(int64 InTicks, double InDeltaSeconds, std::vector<FPlacedSprite>& OutSprites)
{
	Ahead.SetMediaTime(InTicks);
	Stage->SetMediaTime(InTicks);
	Stage->RunFrame(static_cast<float>(InDeltaSeconds));
	Stage->CollectPaint(Comments);
	Sprites.Collect(Comments, Drawn);
	OutSprites.clear();
	for (FCommentSprite& Sprite : Drawn)
	{
		OutSprites.push_back({std::move(Sprite.Sprite), Sprite.X, Sprite.Y});
	}
}

} // namespace Flitmark
