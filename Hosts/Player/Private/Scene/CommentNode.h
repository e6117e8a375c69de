#pragma once

#include "Scene/PageNode.h"
#include "Scene/SpriteAtlas.h"

#include <QPointF>
#include <QSGNode>

#include <vector>

namespace Flitmark
{

class FOverlay;

/**
 * The comments in a scene. Owns the textures: the scene ends it with its context current, whatever becomes of the window or
 * the layer. On the render thread alone.
 */
class FCommentNode final : public QSGNode
{
public:
	explicit FCommentNode(QQuickWindow& InWindow);
	~FCommentNode() override;

	/**
	 * Takes over what is to be drawn while the interface thread waits, and has missing sprites made.
	 * InRasterScale: device pixels per canvas unit for these. InOrigin: the item in the window, in device pixels. InLift:
	 * how far above their places bottom comments are drawn, in device pixels.
	 */
	void Sync(FOverlay& InOverlay, double InRasterScale, QPointF InOrigin, double InLift);

	/** Before each frame is drawn: hands sprites to the graphics card, lays the comments out. */
	void preprocess() override;

private:
	struct FDrawn
	{
		uint64 StyleId = 0;
		/** Top-left corner in device pixels from the item's. */
		QPointF Position;
		/** Stands on whole device pixels. */
		bool bSnapX = false;
		bool bSnapY = false;
		bool bViewers = false;
	};

	void HaveMade(const FOverlay& InOverlay, double InRasterScale);
	void Build();
	void AddQuads(const FDrawn& InDrawn, const FAtlasSprite& InSprite);
	void ShowQuads();

	FSpriteAtlas Atlas;
	std::shared_ptr<FSpriteMaker> Maker;

	std::vector<FDrawn> Comments;
	QPointF Origin;
	double DevicePixelRatio = 1.0;
	/** Device pixels per canvas unit, as comments are placed. */
	double Scale = 1.0;
	int32 NumWanted = 0;
	bool bStale = false;

	/** For each page those of the others' comments, then for each those of the viewer's. */
	std::vector<std::vector<FPageQuad>> Quads;
	std::vector<std::unique_ptr<FPageNode>> Nodes;
};

} // namespace Flitmark
