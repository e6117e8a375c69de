#pragma once

#include "CoreTypes.h"

#include <QRectF>
#include <QSGGeometry>
#include <QSGGeometryNode>
#include <QSGTextureMaterial>

#include <cstdint>
#include <span>

namespace Flitmark
{

/** A rectangle of a page, as drawn. */
struct FPageQuad
{
	/** In the item's coordinates. */
	QRectF Target;
	/** On the page, from 0 to 1. */
	QRectF Source;
};

/** Parts of one page in the scene. */
class FPageNode final : public QSGGeometryNode
{
public:
	/** More would need indices of more than 16 bits, which not every graphics card supports. */
	static constexpr std::size_t MaxQuads = 16'000;

	FPageNode();

	/** At most MaxQuads, drawn in order; the texture must live for as long as they are shown. */
	void Show(QSGTexture& InTexture, std::span<const FPageQuad> InQuads);

private:
	QSGGeometry Geometry;
	QSGTextureMaterial Material;
};

} // namespace Flitmark
