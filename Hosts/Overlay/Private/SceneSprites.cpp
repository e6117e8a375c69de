#include "Overlay/SceneSprites.h"

#include "Text/TextLimits.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

constexpr int64 BytesPerPixel = 4;

int64 CountBytes(const FSprite& InSprite)
{
	return static_cast<int64>(InSprite.Pixels.size());
}

} // namespace

FSceneSprites::FSceneSprites(FTextEngine& InEngine, FTextScale InScale, int64 InMaxBytes)
	: Engine(InEngine)
	, Scale(InScale)
	, ByteLimit(InMaxBytes)
{
}

void FSceneSprites::Place(const FCommentScene& InScene, const FOverlaySettings& InSettings,
						  std::vector<FPlacedSprite>& OutSprites)
{
	OutSprites.clear();
	Sweep();
	for (const FSceneComment& Comment : InScene.GetComments())
	{
		if (std::shared_ptr<const FSprite> Sprite = Comment.bEntered ? Draw(Comment.Style) : nullptr)
		{
			OutSprites.push_back(
				{std::move(Sprite), Comment.Position.X * Scale.X, Comment.Position.Y * Scale.Y, InSettings.Opacity});
		}
	}
}

std::shared_ptr<const FSprite> FSceneSprites::Draw(const std::shared_ptr<const FSharedStyle>& InStyle)
{
	const auto Known = Drawn.find(InStyle->Id);
	if (Known != Drawn.end())
	{
		return Known->second.Sprite;
	}
	if (!HasRoomFor(InStyle->Style))
	{
		bCut = true;
		return nullptr;
	}
	const auto Sprite = std::make_shared<const FSprite>(InStyle->Style.Rasterize(Engine, Scale));
	bCut = bCut || Sprite->bCut;
	Bytes += CountBytes(*Sprite);
	Drawn[InStyle->Id] = {InStyle, Sprite};
	return Sprite;
}

bool FSceneSprites::HasRoomFor(const FCommentStyle& InStyle) const
{
	const FTextSize Size = Engine.Measure(InStyle.Text, InStyle.Size);
	const double Pixels = Size.Width * Scale.X * Size.Height * Scale.Y;
	const double Limit = static_cast<double>(FTextLimits::MaxSpritePixels);
	return Bytes + static_cast<int64>(std::min(Pixels, Limit)) * BytesPerPixel <= ByteLimit;
}

void FSceneSprites::Sweep()
{
	std::erase_if(Drawn,
				  [this](const auto& InDrawn)
				  {
					  const bool bUnused = InDrawn.second.Style.expired();
					  Bytes -= bUnused ? CountBytes(*InDrawn.second.Sprite) : 0;
					  return bUnused;
				  });
}

} // namespace Flitmark
