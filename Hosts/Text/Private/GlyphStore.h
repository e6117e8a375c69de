#pragma once

#include "BoundedCache.h"
#include "GlyphImage.h"

#include <functional>
#include <memory>

namespace Flitmark
{

/** Draws each glyph once and caches it while it is in use. Thread-safe. */
class FGlyphStore
{
public:
	/** InOutline: factor on the outlines' width; see FTextOptions. */
	explicit FGlyphStore(FFontSet& InFonts, double InOutline = 1.0);

	std::shared_ptr<const FGlyphImage> Get(const FGlyphKey& InKey);

	/** Memory used by the cached glyphs. */
	std::size_t CountBytes() { return Cache.CountBytes(); }

private:
	struct FHash
	{
		std::size_t operator()(const FGlyphKey& InKey) const;
	};

	FFontSet& Fonts;
	const double Outline;

	/** Few shards, so that glyphs of 2,000 pixels are still cached. */
	TBoundedCache<FGlyphKey, std::shared_ptr<const FGlyphImage>, FHash, std::equal_to<FGlyphKey>, 4> Cache;
};

} // namespace Flitmark
