#include "Scene/PageNode.h"

namespace Flitmark
{

FPageNode::FPageNode()
	: Geometry(QSGGeometry::defaultAttributes_TexturedPoint2D(), 0, 0)
{
	Geometry.setDrawingMode(QSGGeometry::DrawTriangles);
	Geometry.setVertexDataPattern(QSGGeometry::StreamPattern);
	Material.setFiltering(QSGTexture::Linear);
	setGeometry(&Geometry);
	setMaterial(&Material);
}

void FPageNode::Show(QSGTexture& InTexture, std::span<const FPageQuad> InQuads)
{
	if (Material.texture() != &InTexture)
	{
		Material.setTexture(&InTexture);
		markDirty(DirtyMaterial);
	}
	const int NumQuads = static_cast<int>(InQuads.size());
	if (Geometry.vertexCount() != 4 * NumQuads)
	{
		Geometry.allocate(4 * NumQuads, 6 * NumQuads);
		uint16* Index = Geometry.indexDataAsUShort();
		for (int First = 0; First < 4 * NumQuads; First += 4)
		{
			for (const int Corner : {0, 1, 2, 2, 1, 3})
			{
				*Index++ = static_cast<uint16>(First + Corner);
			}
		}
	}
	QSGGeometry::TexturedPoint2D* Point = Geometry.vertexDataAsTexturedPoint2D();
	for (const FPageQuad& Quad : InQuads)
	{
		const auto Put = [&Point](double InX, double InY, double InU, double InV)
		{
			(Point++)->set(static_cast<float>(InX), static_cast<float>(InY), static_cast<float>(InU),
						   static_cast<float>(InV));
		};
		Put(Quad.Target.left(), Quad.Target.top(), Quad.Source.left(), Quad.Source.top());
		Put(Quad.Target.right(), Quad.Target.top(), Quad.Source.right(), Quad.Source.top());
		Put(Quad.Target.left(), Quad.Target.bottom(), Quad.Source.left(), Quad.Source.bottom());
		Put(Quad.Target.right(), Quad.Target.bottom(), Quad.Source.right(), Quad.Source.bottom());
	}
	markDirty(DirtyGeometry);
}

} // namespace Flitmark
