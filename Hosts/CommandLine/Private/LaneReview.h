#pragma once

#include "Overlay/Rehearsal.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Flitmark
{

class FCommentDocument;
class FJsonLine;

/** A minute of media time in which comments find no lane. */
struct FCrowdedMinute
{
	int64 Minute = 0;
	int64 NumDue = 0;
	int64 NumNoLane = 0;
};

/** What would help in the worst minute. */
struct FRemedy
{
	/** As it is typed, such as "--area 1". */
	std::string Option;
	/** How many comments of that minute would still find no lane; empty where the option leaves others out instead. */
	std::optional<int64> NumNoLane;
};

/** Which of a document's comments find lanes among the others. */
struct FLaneReview
{
	FPlacementCounts Counts;
	/** The worst ones first, at most MostMinutes. */
	std::vector<FCrowdedMinute> Worst;
	/** None where every comment has a lane. */
	std::vector<FRemedy> Remedies;

	static constexpr std::size_t MostMinutes = 3;
};

/** Runs the overlay; empty with OutError set where that cannot be. */
std::optional<FLaneReview> ReviewLanes(const FCommentDocument& InDocument, const FRehearsalOptions& InOptions,
									   std::string& OutError);

/** Prints it for people; nothing where no comment is due. */
void PrintLanes(const FLaneReview& InReview);

/** Adds the members "lanes", "worst_minutes" and "remedies" to an object. */
void AddLanes(FJsonLine& Line, const FLaneReview& InReview);

} // namespace Flitmark
