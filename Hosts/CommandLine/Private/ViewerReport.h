#pragma once

#include "Formats/CommentDocument.h"
#include "Overlay/PlacementTally.h"

#include <string>
#include <vector>

namespace Flitmark
{

/** What a viewer saw of a file's comments, and why not the rest: every comment is in one of the figures. */
struct FViewerReport
{
	int64 NumComments = 0;

	/** Of those that were due, without the ones that were over when the watching began. */
	FPlacementCounts Placed;
	int64 NumOver = 0;

	/** Due before or after what was run. */
	int64 NumEarly = 0;
	int64 NumLate = 0;
	/** Due in a second in which the video has no frame. */
	int64 NumPassed = 0;

	/** Due at a time that no media time reaches. */
	int64 NumNeverDue = 0;

	/** Left out by the host; see FCommentsReport. */
	int64 NumCrowdedOut = 0;

	/** "4,832 comments: shown 328; no free lane 4,450; later than the end 54". */
	std::string Describe() const;
};

/** The times of a document's comments: what a report needs of it. */
class FDueSeconds
{
public:
	FDueSeconds() = default;
	explicit FDueSeconds(const FCommentDocument& InDocument);

	/** The last second of comments' time in which one is due; -1 for none. */
	int64 GetLast() const { return Seconds.empty() ? -1 : Seconds.back(); }

	/**
	 * InFirst, InLast: the seconds of comments' time that were run; InLast below InFirst for none. InPlaced: what was
	 * counted meanwhile.
	 */
	FViewerReport Report(int64 InFirst, int64 InLast, const FPlacementCounts& InPlaced) const;

private:
	/** Sorted. */
	std::vector<int32> Seconds;
	int64 NumNeverDue = 0;
};

} // namespace Flitmark
