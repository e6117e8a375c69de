#include "Overlay/CommentSprites.h"

#include "Text/TextLimits.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

constexpr int64 BytesPerPixel = 4;

/** How many looks may be kept whose sprites are gone. */
constexpr std::size_t MaxStale = 256;

} // namespace

FCommentSprites::FCommentSprites(FTextEngine& InEngine, int64 InMaxBytes)
	: Engine(InEngine)
	, Limit(InMaxBytes)
	, Bytes(std::make_shared<std::atomic<int64>>(0))
{
}

void FCommentSprites::SetView(FVector2D InCanvasSize, FTextScale InScale)
{
	CanvasSize = InCanvasSize;
	Scale = InScale;
	Held.clear();
	Drawn.clear();
}

bool FCommentSprites::IsInView(const FPaintComment& InComment) const
{
	const FVector2D End = InComment.Position + InComment.Size;
	return InComment.Position.X < CanvasSize.X && InComment.Position.Y < CanvasSize.Y && End.X > 0.0 && End.Y > 0.0;
}

bool FCommentSprites::HasRoomFor(const FPaintComment& InComment) const
{
	const double Pixels = InComment.Size.X * Scale.X * InComment.Size.Y * Scale.Y;
	const double Most = static_cast<double>(FTextLimits::MaxSpritePixels);
	return *Bytes + static_cast<int64>(std::min(Pixels, Most)) * BytesPerPixel <= Limit;
}

std::shared_ptr<const FSprite> FCommentSprites::Draw(const FPaintComment& InComment)
{
	const FCommentLook Look = FCommentLook::Of(*InComment.Text);
	if (Look.Color.A == 0)
	{
		return nullptr;
	}
	std::weak_ptr<const FSprite>& Known = Drawn[Look];
	if (std::shared_ptr<const FSprite> Sprite = Known.lock())
	{
		return Sprite;
	}
	auto Sprite = std::make_unique<FSprite>(Look.Rasterise(Engine, Scale));
	bCut = bCut || Sprite->bCut;
	if (Sprite->Width == 0 || Sprite->Height == 0)
	{
		return nullptr;
	}
	const int64 Taken = static_cast<int64>(Sprite->Pixels.size());
	*Bytes += Taken;
	std::shared_ptr<const FSprite> Shared(Sprite.release(),
										  [Counter = Bytes, Taken](const FSprite* InSprite)
										  {
											  *Counter -= Taken;
											  delete InSprite;
										  });
	Known = Shared;
	return Shared;
}

void FCommentSprites::Collect(const std::vector<FPaintComment>& InComments, std::vector<FCommentSprite>& OutSprites)
{
	++Frame;
	OutSprites.clear();
	for (const FPaintComment& Comment : InComments)
	{
		auto Known = Held.find(Comment.Key);
		if (Known == Held.end())
		{
			if (!IsInView(Comment))
			{
				continue;
			}
			if (!HasRoomFor(Comment))
			{
				bCut = true;
				continue;
			}
			Known = Held.emplace(Comment.Key, FHeld{Draw(Comment)}).first;
		}
		Known->second.LastFrame = Frame;
		if (Known->second.Sprite)
		{
			OutSprites.push_back({Known->second.Sprite, Comment.Position.X * Scale.X, Comment.Position.Y * Scale.Y});
		}
	}
	LetGo();
}

void FCommentSprites::LetGo()
{
	std::erase_if(Held, [this](const auto& InHeld) { return InHeld.second.LastFrame != Frame; });
	if (Drawn.size() > 2 * Held.size() + MaxStale)
	{
		std::erase_if(Drawn, [](const auto& InDrawn) { return InDrawn.second.expired(); });
	}
}

} // namespace Flitmark
