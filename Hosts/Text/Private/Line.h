#pragma once

#include "CoreTypes.h"
#include "CharTable.h"

#include <vector>

namespace Flitmark
{

/** Adjacent characters of a line that are shaped together. */
struct FRun
{
	std::size_t Begin = 0;
	std::size_t Count = 0;
	FFontId Font = FFontSet::Primary;

	/** For FCharTable::GetScript. */
	uint8 Script = 0;

	/** Embedding level of the bidirectional algorithm; odd is right-to-left. */
	int8 Level = 0;

	/** Every character is Simple. */
	bool bSimple = false;
};

/** A line being laid out. Reused, so that laying out a line allocates nothing. */
struct FLine
{
	std::vector<uint32> Points;
	hb_language_t Language = nullptr;

	/** Parallel to Points: their records, with the font to use. */
	std::vector<FCharInfo> Infos;
	std::vector<int8> Levels;

	/** In visual order, left to right. */
	std::vector<FRun> Runs;
};

} // namespace Flitmark
