#include "GlyphStore.h"

#include "GlyphRenderer.h"
#include "Text/TextLimits.h"

namespace Flitmark
{

FGlyphStore::FGlyphStore(FFontSet& InFonts, double InOutline)
	: Fonts(InFonts)
	, Outline(InOutline)
	, Cache(FTextLimits::GlyphCacheBytes)
{
}

std::shared_ptr<const FGlyphImage> FGlyphStore::Get(const FGlyphKey& InKey)
{
	std::shared_ptr<const FGlyphImage> Image;
	if (!Cache.Find(InKey, Image))
	{
		Image =
			std::make_shared<const FGlyphImage>(RenderGlyph(Fonts.GetLibrary(), Fonts.Get(InKey.Font), InKey, Outline));
		constexpr std::size_t EntryBytes = sizeof(FGlyphImage) + sizeof(FGlyphKey) + 64;
		Cache.Add(InKey, Image, EntryBytes + Image->CountBytes());
	}
	return Image;
}

std::size_t FGlyphStore::FHash::operator()(const FGlyphKey& InKey) const
{
	// Multiplied by odd random constants and folded: cheap, and spreads neighboring glyphs.
	const uint64 Which = uint64{InKey.Glyph} << 24U | uint64{InKey.Font} << 8U | InKey.Phase;
	const uint64 Size = static_cast<uint64>(static_cast<uint32>(InKey.EmX)) << 32U | static_cast<uint32>(InKey.EmY);
	const uint64 Mixed = Which * 0x9e3779b97f4a7c15U ^ (Size * 0xc2b2ae3d27d4eb4fU >> 7U);
	return static_cast<std::size_t>(Mixed ^ Mixed >> 29U);
}

} // namespace Flitmark
