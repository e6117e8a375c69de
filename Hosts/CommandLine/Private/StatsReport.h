#pragma once

#include "Insight/CommentStats.h"
#include "CoreMinimal.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Flitmark
{

/** How the report is to look. */
struct FStatsLook
{
	/** Columns. */
	std::size_t Width = 80;
	/** Whether colours are shown as such. */
	bool bColors = false;

	/** Standard output's: 80 columns without colours where it is no terminal. */
	static FStatsLook OfStandardOutput();
};

/** The report, in lines. InSpawnTicks: of the comments that are reached. */
std::string DescribeStats(const FCommentStats& InStats, const std::vector<int64>& InSpawnTicks,
						  const FStatsLook& InLook);

} // namespace Flitmark
