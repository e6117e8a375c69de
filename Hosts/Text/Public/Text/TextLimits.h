#pragma once

#include "CoreTypes.h"

#include <cstddef>

namespace Flitmark
{

/**
 * Limits on what is laid out and painted. Comments are untrusted: a text may be megabytes long or ask for a size no
 * screen has. Anything beyond a limit is left out and reported by bCut of the result.
 */
struct FTextLimits
{
	/** UTF-16 code units used, from the start of the text; the rest is neither measured nor painted. */
	static constexpr std::size_t MaxCodeUnits = 4096;

	/** Lines used, likewise. */
	static constexpr int32 MaxLines = 200;

	/** Pixels per em, in either direction; larger texts are measured but not painted. */
	static constexpr double MaxEmPixels = 4096.0;

	/** Pixels of a sprite (64 MiB); of a larger one, the top left part is painted. */
	static constexpr int64 MaxSpritePixels = int64{16} << 20;

	/** Rows of a sprite that would pass MaxSpritePixels: about two 4K screens. */
	static constexpr int64 MaxSpriteRows = 4096;

	/** Bytes of cached measurements: about 200,000 comments of 15 characters. */
	static constexpr std::size_t MeasureCacheBytes = std::size_t{32} << 20;

	/** Bytes of cached glyphs: about 20,000 glyphs at 32 pixels per em. */
	static constexpr std::size_t GlyphCacheBytes = std::size_t{64} << 20;
};

} // namespace Flitmark
