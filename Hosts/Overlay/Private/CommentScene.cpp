#include "Overlay/CommentScene.h"

#include "UI_DanmakuNode.h"

namespace Flitmark
{

namespace
{

/** Canvas units right of the canvas at which a comment joins the scene, about two seconds before it can be seen. */
constexpr double EntryWidth = 400.0;

/** How many unused styles may gather, beyond as many as are in use, before a sweep pays off. */
constexpr std::size_t StyleSlack = 256;

/** False where a position is not a number. */
bool IsWithin(const FPaintComment& InComment, double InWidth, double InHeight)
{
	const FVector2D End = InComment.Position + InComment.Size;
	return InComment.Position.X < InWidth && InComment.Position.Y < InHeight && End.X > 0.0 && End.Y > 0.0;
}

/** Seconds for which a comment is shown: in that time, it would cross the canvas's width and its own. */
double GetDisplayTime(const FPaintComment& InComment, double InCanvasWidth)
{
	const double Speed = InComment.Node->GetRollSpeed();
	return Speed > 0.0 ? (InCanvasWidth + InComment.Size.X) / Speed : 0.0;
}

} // namespace

void FCommentScene::Update(const std::vector<FPaintComment>& InComments, FVector2f InCanvasSize, double InSeconds)
{
	++Frame;
	// A comment that starts in a frame has already used up that frame's time.
	const double Begin = Time;
	Time += InSeconds;
	const double Width = InCanvasSize.X;
	const double Height = InCanvasSize.Y;
	Comments.clear();
	std::size_t NumHeld = 0;
	for (const FPaintComment& Comment : InComments)
	{
		auto Known = Held.find(Comment.Key);
		if (Known == Held.end())
		{
			if (!IsWithin(Comment, Width + EntryWidth, Height))
			{
				continue;
			}
			Known = Held.emplace(Comment.Key, Hold(Comment, Width, Begin)).first;
		}
		++NumHeld;
		FHeld& Each = Known->second;
		Each.LastFrame = Frame;
		if (!Each.Comment.Style)
		{
			continue;
		}
		FSceneComment& Shown = Each.Comment;
		Shown.Position = Comment.Position;
		Shown.Age = Time - Each.Begin;
		Shown.TimeLeft = Each.End - Time;
		Shown.bMovesX = Shown.bMovesX || Comment.Position.X != Each.FirstPosition.X;
		Shown.bMovesY = Shown.bMovesY || Comment.Position.Y != Each.FirstPosition.Y;
		Shown.bEntered = Shown.bEntered || IsWithin(Comment, Width, Height);
		Comments.push_back(Shown);
	}
	if (NumHeld < Held.size())
	{
		Sweep();
	}
}

FCommentScene::FHeld FCommentScene::Hold(const FPaintComment& InComment, double InCanvasWidth, double InBegin)
{
	FHeld Each;
	Each.Comment.Key = InComment.Key;
	Each.Comment.Style = Share(FCommentStyle::Of(*InComment.Text));
	Each.Comment.bViewers = InComment.bViewers;
	Each.FirstPosition = InComment.Position;
	Each.Begin = InBegin;
	Each.End = InBegin + GetDisplayTime(InComment, InCanvasWidth);
	return Each;
}

std::shared_ptr<const FSharedStyle> FCommentScene::Share(FCommentStyle InStyle)
{
	if (!InStyle.IsVisible())
	{
		return nullptr;
	}
	std::weak_ptr<const FSharedStyle>& Known = Styles[InStyle];
	std::shared_ptr<const FSharedStyle> Shared = Known.lock();
	if (!Shared)
	{
		Shared = std::make_shared<FSharedStyle>(FSharedStyle{++LastId, std::move(InStyle)});
		Known = Shared;
	}
	return Shared;
}

void FCommentScene::Sweep()
{
	std::erase_if(Held, [this](const auto& InHeld) { return InHeld.second.LastFrame != Frame; });
	if (Styles.size() > MaxStyles)
	{
		std::erase_if(Styles, [](const auto& InStyle) { return InStyle.second.expired(); });
		MaxStyles = 2 * Styles.size() + StyleSlack;
	}
}

} // namespace Flitmark
