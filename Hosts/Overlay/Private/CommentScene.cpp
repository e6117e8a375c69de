#include "Overlay/CommentScene.h"

#include "UI_DanmakuNode.h"

#include <cmath>

namespace Flitmark
{

namespace
{

/** Canvas units right of the canvas at which a comment joins the scene, about two seconds before it can be seen. */
constexpr double EntryWidth = 400.0;

/** How many unused styles may gather, beyond as many as are in use, before a sweep pays off. */
constexpr std::size_t StyleSlack = 256;

/** False where a position is not a number. */
bool IsWithin(const FVector2D& InPosition, const FVector2D& InSize, double InWidth, double InHeight)
{
	const FVector2D End = InPosition + InSize;
	return InPosition.X < InWidth && InPosition.Y < InHeight && End.X > 0.0 && End.Y > 0.0;
}

bool IsAtBottom(const FPaintComment& InComment)
{
	return InComment.Node->GetData().Mode == EDanmakuMode::BOTTOM;
}

/** Canvas units by which a comment stands lower on the picture than on its canvas. */
double GetShift(const FPaintComment& InComment, const FSceneFrame& InFrame)
{
	return IsAtBottom(InComment) ? InFrame.PictureSize.Y - InFrame.CanvasHeight : 0.0;
}

/** Seconds for which a comment is shown: in that time, it would cross the canvas's width and its own. */
double GetDisplayTime(const FPaintComment& InComment, double InCanvasWidth)
{
	const double Speed = InComment.Node->GetRollSpeed();
	return Speed > 0.0 ? (InCanvasWidth + InComment.Size.X) / Speed : 0.0;
}

} // namespace

void FCommentScene::Update(const std::vector<FPaintComment>& InComments, const FSceneFrame& InFrame, double InSeconds)
{
	++Frame;
	// A comment that starts in a frame has already used up that frame's time.
	const double Begin = Time;
	Time += InSeconds;
	const double Width = InFrame.PictureSize.X;
	const double Height = InFrame.PictureSize.Y;
	Comments.clear();
	std::size_t NumHeld = 0;
	for (const FPaintComment& Comment : InComments)
	{
		auto Known = Held.find(Comment.Key);
		if (Known == Held.end())
		{
			const double Shift = GetShift(Comment, InFrame);
			const FVector2D Position = Comment.Position + FVector2D(0.0, Shift);
			if (!IsWithin(Position, Comment.Size, Width + EntryWidth, Height))
			{
				continue;
			}
			Known = Held.emplace(Comment.Key, Hold(Comment, InFrame, Shift, Begin)).first;
		}
		++NumHeld;
		FHeld& Each = Known->second;
		Each.LastFrame = Frame;
		if (!Each.Comment.Style)
		{
			continue;
		}
		FSceneComment& Shown = Each.Comment;
		Shown.Position = Comment.Position + FVector2D(0.0, Each.Shift);
		Shown.Age = Time - Each.Begin;
		Shown.TimeLeft = Each.End - Time;
		Shown.bMovesX = Shown.bMovesX || Shown.Position.X != Each.FirstPosition.X;
		Shown.bMovesY = Shown.bMovesY || Shown.Position.Y != Each.FirstPosition.Y;
		Shown.bEntered = Shown.bEntered || IsWithin(Shown.Position, Comment.Size, Width, Height);
		Comments.push_back(Shown);
	}
	if (NumHeld < Held.size())
	{
		Sweep();
	}
}

FCommentScene::FHeld FCommentScene::Hold(const FPaintComment& InComment, const FSceneFrame& InFrame, double InShift,
										 double InBegin)
{
	FHeld Each;
	Each.Comment.Key = InComment.Key;
	Each.Comment.Style = Share(FCommentStyle::Of(*InComment.Text, InFrame.FontScale));
	Each.Comment.bViewers = InComment.bViewers;
	Each.Comment.bAtBottom = IsAtBottom(InComment);
	Each.Shift = InShift;
	Each.FirstPosition = InComment.Position + FVector2D(0.0, InShift);
	Each.Begin = InBegin;
	Each.End = InBegin + GetDisplayTime(InComment, InFrame.PictureSize.X);
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
