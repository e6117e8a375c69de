#include "Scene/CommentScene.h"

namespace Flitmark
{

namespace
{

/** Canvas units beside the right edge from which a comment's sprite is made, about two seconds ahead. */
constexpr double EntryWidth = 400.0;

/** How many looks may gather beyond twice those in use before a walk over them pays. */
constexpr std::size_t LookSlack = 256;

} // namespace

void FCommentScene::Update(const std::vector<FPaintComment>& InComments, FVector2D InCanvasSize)
{
	++Frame;
	Comments.clear();
	for (const FPaintComment& Comment : InComments)
	{
		const FVector2D& Begin = Comment.Position;
		const FVector2D End = Begin + Comment.Size;
		// Also where a place is no number.
		if (!(End.X > 0.0 && End.Y > 0.0 && Begin.X < InCanvasSize.X + EntryWidth && Begin.Y < InCanvasSize.Y))
		{
			continue;
		}
		auto Known = Held.find(Comment.Key);
		if (Known == Held.end())
		{
			Known = Held.emplace(Comment.Key, FHeld{Share(Comment), Begin}).first;
		}
		FHeld& Each = Known->second;
		Each.LastFrame = Frame;
		Each.bMovesX = Each.bMovesX || Begin.X != Each.FirstPosition.X;
		Each.bMovesY = Each.bMovesY || Begin.Y != Each.FirstPosition.Y;
		if (Each.Look)
		{
			Comments.push_back(
				{Each.Look, Begin, Each.bMovesX, Each.bMovesY, Begin.X < InCanvasSize.X, Comment.bViewers});
		}
	}
	LetGo();
}

std::shared_ptr<const FSharedLook> FCommentScene::Share(const FPaintComment& InComment)
{
	FCommentLook Look = FCommentLook::Of(*InComment.Text);
	if (Look.Color.A == 0 || Look.Text.empty())
	{
		return nullptr;
	}
	std::weak_ptr<const FSharedLook>& Known = Looks[Look];
	std::shared_ptr<const FSharedLook> Shared = Known.lock();
	if (!Shared)
	{
		Shared = std::make_shared<FSharedLook>(FSharedLook{++LastId, std::move(Look)});
		Known = Shared;
	}
	return Shared;
}

void FCommentScene::LetGo()
{
	std::erase_if(Held, [this](const auto& InHeld) { return InHeld.second.LastFrame != Frame; });
	if (Looks.size() > MostLooks)
	{
		std::erase_if(Looks, [](const auto& InLook) { return InLook.second.expired(); });
		MostLooks = 2 * Looks.size() + LookSlack;
	}
}

} // namespace Flitmark
