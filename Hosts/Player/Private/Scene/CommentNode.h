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
 * The comments in a scene. Owns the textures: the scene deletes it with its context current, whatever happens to the
 * window or the layer. Render thread only.
 */
class FCommentNode final : public QSGNode
{
public:
	explicit FCommentNode(QQuickWindow& InWindow);
	~FCommentNode() override;

	/**
	 * Takes over what to draw, while the interface thread waits, and requests missing sprites. InRasterScale: device
	 * pixels per canvas unit for these. InOrigin: the item's position in the window, in device pixels. InLift: how far
	 * to raise bottom comments, in device pixels.
	 */
	void Sync(FOverlay& InOverlay, double InRasterScale, QPointF InOrigin, double InLift);

	/** Before each frame is drawn: uploads sprites and lays out the comments. */
	void preprocess() override;

private:
	struct FDrawn
	{
		uint64 StyleId = 0;
		/** Top-left corner in device pixels, relative to the item's. */
		QPointF Position;
		/** Whether it sits on whole device pixels. */
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
	/** Device pixels per canvas unit for placing comments. */
	double Scale = 1.0;
	int32 NumWanted = 0;
	bool bStale = false;

	/** For each page the nodes of others' comments, then for each page those of the viewer's. */
	std::vector<std::vector<FPageQuad>> Quads;
	std::vector<std::unique_ptr<FPageNode>> Nodes;
};

} // namespace Flitmark
