#pragma once

#include "CoreTypes.h"
#include "Formats/ServiceComment.h"

#include <vector>

namespace Flitmark
{

/** What is done about comments whose kind the overlay does not serve. */
struct FKindPolicy
{
	/** Comments that move from left to right: true lets them scroll, false drops them. */
	bool bReverseAsScroll = true;

	/**
	 * Positioned comments: true lets their plain text stand at the top, false drops them. Those without a letter, digit
	 * or pictograph are pieces of drawings, which mean nothing in another place: they are dropped in any case.
	 */
	bool bPositionedAsText = true;

	/** Paid comments: true lets them stand at the top, false drops them. */
	bool bPaidAsText = true;
};

/** What was done. */
struct FKindCounts
{
	uint64 NumReverseTurned = 0;
	uint64 NumReverseDropped = 0;
	uint64 NumPositionedTurned = 0;
	/** Also those of which no text could be taken. */
	uint64 NumPositionedDropped = 0;
	uint64 NumDrawingsDropped = 0;
	uint64 NumScriptsDropped = 0;
	uint64 NumUnknownDropped = 0;
	uint64 NumPaidTurned = 0;
	uint64 NumPaidDropped = 0;

	uint64 CountDropped() const
	{
		return NumReverseDropped + NumPositionedDropped + NumDrawingsDropped + NumScriptsDropped + NumUnknownDropped +
			   NumPaidDropped;
	}
};

/**
 * Leaves only comments that scroll or stand at the top or bottom, in their order; scripts and unknown kinds are always
 * dropped. Comments of our own document (with a Source) stay whatever their kind: how they are shown is written there.
 */
FKindCounts ApplyKindPolicy(std::vector<FServiceComment>& InOutComments, const FKindPolicy& InPolicy);

} // namespace Flitmark
