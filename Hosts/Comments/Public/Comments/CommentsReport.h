#pragma once

#include "CoreTypes.h"
#include "Filtering/CommentFilter.h"
#include "Formats/CommentImport.h"
#include "Filtering/KindPolicy.h"

#include <string>
#include <vector>

namespace Flitmark
{

/** What became of one file's entries on their way to comments that the overlay serves. */
struct FCommentsReport
{
	/** As the user named the file. */
	std::string Path;

	/** False for our own document that was taken over as it is; nothing of Import is set then. */
	bool bImported = false;
	FImportReport Import;
	FKindCounts Kinds;

	/** Comments of so many lines that they were made smaller to fit. */
	uint64 NumFitted = 0;

	/** Taken out because too many come in one second; see CrowdBound.h. */
	int64 NumCrowdedOut = 0;

	/** How many entries will not be shown because of what they are, because they are broken, or because of the crowd. */
	int64 CountLost() const { return static_cast<int64>(Import.NumBroken + Kinds.CountDropped()) + NumCrowdedOut; }
};

/** "1,204". */
std::string FormatCount(int64 InCount);

/** "1,204 comments", "1 comment". */
std::string CountComments(int64 InCount);

/** "980,000 comments are left out, because more than 20,000 come in the same second". */
std::string DescribeCrowd(int64 InCount);

/** "FILE: read as XML list, 331 comments". */
std::string DescribeImport(const FCommentsReport& InReport);

/**
 * For people, a line each: what of a file was broken (the first places, then a count), what is no comment, what is not
 * served, what is shown otherwise than its service shows it. Nothing where all is well.
 */
std::vector<std::string> DescribeLosses(const FCommentsReport& InReport);

/** "--merge 5: 30 comments taken out, 12 stand for them". */
std::string DescribeRule(const FFilterRule& InRule);

} // namespace Flitmark
