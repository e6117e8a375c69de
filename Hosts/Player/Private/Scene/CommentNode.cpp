#include "Scene/CommentNode.h"

#include "Scene/Overlay.h"

#include <QOpenGLContext>

#include <algorithm>
#include <cmath>
#include <unordered_set>

namespace Flitmark
{

FCommentNode::FCommentNode(QQuickWindow& InWindow)
	: Atlas(InWindow)
{
	setFlag(UsePreprocess);
}

FCommentNode::~FCommentNode()
{
	// The child nodes are members, so the scene must not delete them.
	removeAllChildNodes();
}

void FCommentNode::Sync(FOverlay& InOverlay, double InRasterScale, QPointF InOrigin, double InLift)
{
	Maker = InOverlay.GetMaker();
	Origin = InOrigin;
	DevicePixelRatio = InOverlay.GetDevicePixelRatio();
	Scale = InOverlay.GetView().Scale.Y;
	Comments.clear();
	for (const FSceneComment& Comment : InOverlay.GetScene().GetComments())
	{
		const double Lift = Comment.bAtBottom ? InLift : 0.0;
		Comments.push_back({Comment.Style->Id, QPointF(Comment.Position.X * Scale, Comment.Position.Y * Scale - Lift),
							!Comment.bMovesX, !Comment.bMovesY, Comment.bViewers});
	}
	bStale = true;
	HaveMade(InOverlay, InRasterScale);
	FFrameMeter& Meter = InOverlay.GetMeter();
	Meter.SetSprites({Maker->GetNumMade(), NumWanted + (Atlas.HasMore() ? 1 : 0), Atlas.GetTextureBytes(),
					  Meter.GetSprites().bUndrawn || Atlas.TakeUndrawn()});
}

void FCommentNode::HaveMade(const FOverlay& InOverlay, double InRasterScale)
{
	std::vector<FWantedSprite> Wanted;
	std::unordered_set<uint64> Listed;
	for (const bool bEntered : {true, false})
	{
		for (const FSceneComment& Comment : InOverlay.GetScene().GetComments())
		{
			if (Comment.bEntered == bEntered && Atlas.IsMissing(Comment.Style->Id, InRasterScale) &&
				Listed.insert(Comment.Style->Id).second)
			{
				Wanted.push_back({Comment.Style, InRasterScale});
			}
		}
	}
	if (Wanted.empty() && NumWanted == 0)
	{
		return;
	}
	NumWanted = static_cast<int32>(Wanted.size());
	Maker->SetWanted(std::move(Wanted));
}

void FCommentNode::preprocess()
{
	if (!Maker || QOpenGLContext::currentContext() == nullptr)
	{
		return;
	}
	bStale |= Atlas.BeginFrame(ReadSteadyClock());
	for (const FDrawn& Comment : Comments)
	{
		Atlas.Use(Comment.StyleId);
	}
	const bool bEntered = Atlas.Upload(*Maker);
	bStale |= bEntered;
	// Also for the figures, which count what is still missing when a frame begins.
	if (bEntered || Atlas.HasMore())
	{
		Maker->Notify();
	}
	if (std::exchange(bStale, false))
	{
		Build();
	}
}

void FCommentNode::Build()
{
	Quads.resize(static_cast<std::size_t>(2 * Atlas.GetNumPages()));
	for (std::vector<FPageQuad>& Each : Quads)
	{
		Each.clear();
	}
	for (const FDrawn& Comment : Comments)
	{
		if (const FAtlasSprite* Sprite = Atlas.Find(Comment.StyleId))
		{
			AddQuads(Comment, *Sprite);
		}
	}
	ShowQuads();
}

void FCommentNode::AddQuads(const FDrawn& InDrawn, const FAtlasSprite& InSprite)
{
	const auto Snap = [](bool bSnap, double InPosition, double InFrom)
	{
		return bSnap ? std::round(InFrom + InPosition) - InFrom : InPosition;
	};
	const double X = Snap(InDrawn.bSnapX, InDrawn.Position.x(), Origin.x());
	const double Y = Snap(InDrawn.bSnapY, InDrawn.Position.y(), Origin.y());
	// A sprite of another scale is stretched until one of the right scale is made.
	const double Stretch = Scale / InSprite.Scale;
	const double PageSize = Atlas.GetPageSize();
	for (const FAtlasTile& Tile : InSprite.Tiles)
	{
		// Off the pixel grid, a sprite extends half a pixel into its border, except where its next tile begins.
		const double Left = Tile.SpriteX == 0 ? 0.5 : 0.0;
		const double Top = Tile.SpriteY == 0 ? 0.5 : 0.0;
		const double Right = Tile.SpriteX + Tile.GetWidth() == InSprite.Width ? 0.5 : 0.0;
		const double Bottom = Tile.SpriteY + Tile.GetHeight() == InSprite.Height ? 0.5 : 0.0;
		const QRectF Part(-Left, -Top, Tile.GetWidth() + Left + Right, Tile.GetHeight() + Top + Bottom);
		const QRectF Stretched((Part.x() + InSprite.Left + Tile.SpriteX) * Stretch,
							   (Part.y() + InSprite.Top + Tile.SpriteY) * Stretch, Part.width() * Stretch,
							   Part.height() * Stretch);
		const QRectF Target((X + Stretched.x()) / DevicePixelRatio, (Y + Stretched.y()) / DevicePixelRatio,
							Stretched.width() / DevicePixelRatio, Stretched.height() / DevicePixelRatio);
		const QRectF Source((Tile.Slot.X + 1 + Part.x()) / PageSize, (Tile.Slot.Y + 1 + Part.y()) / PageSize,
							Part.width() / PageSize, Part.height() / PageSize);
		const int32 List = Tile.Page + (InDrawn.bViewers ? Atlas.GetNumPages() : 0);
		Quads[static_cast<std::size_t>(List)].push_back({Target, Source});
	}
}

void FCommentNode::ShowQuads()
{
	std::size_t NumUsed = 0;
	for (std::size_t List = 0; List < Quads.size(); ++List)
	{
		const int32 Page = static_cast<int32>(List) % std::max(Atlas.GetNumPages(), 1);
		std::span<const FPageQuad> Left(Quads[List]);
		while (!Left.empty())
		{
			if (NumUsed == Nodes.size())
			{
				Nodes.push_back(std::make_unique<FPageNode>());
				Nodes.back()->setFlag(OwnedByParent, false);
				appendChildNode(Nodes.back().get());
			}
			const std::size_t Count = std::min(Left.size(), FPageNode::MaxQuads);
			Nodes[NumUsed]->Show(Atlas.GetPage(Page), Left.first(Count));
			Left = Left.subspan(Count);
			++NumUsed;
		}
	}
	while (Nodes.size() > NumUsed)
	{
		removeChildNode(Nodes.back().get());
		Nodes.pop_back();
	}
}

} // namespace Flitmark
