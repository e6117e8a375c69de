#pragma once

#include "Insight/CommentStats.h"
#include "CoreMinimal.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Flitmark
{

/** How the report is laid out. */
struct FStatsStyle
{
	/** Columns. */
	std::size_t Width = 80;
	/** Whether colors are shown, not only named. */
	bool bColors = false;

	/** For standard output: 80 columns and no colors unless it is a terminal. */
	static FStatsStyle OfStandardOutput();
};

/** The report, in lines. InSpawnTicks: of the comments that are reached. */
std::string DescribeStats(const FCommentStats& InStats, const std::vector<int64>& InSpawnTicks,
						  const FStatsStyle& InStyle);

} // namespace Flitmark
