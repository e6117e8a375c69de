#pragma once

#include "CoreTypes.h"
#include "CharTable.h"

#include <vector>

namespace Flitmark
{

/** Neighbouring characters of a line that are shaped together. */
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

/** A line being set. Kept and filled again, so that setting a line takes no memory. */
struct FLine
{
	std::vector<uint32> Points;
	hb_language_t Language = nullptr;

	/** Beside Points: their records, with the font that they are set in. */
	std::vector<FCharInfo> Infos;
	std::vector<int8> Levels;

	/** From left to right as they stand on screen. */
	std::vector<FRun> Runs;
};

} // namespace Flitmark
