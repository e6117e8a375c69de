#include "Comments/CommentsReport.h"

#include "Comments/CrowdBound.h"

#include <algorithm>

namespace Flitmark
{

namespace
{

std::string DescribePlace(const std::string& InPath, const FImportFault& InFault)
{
	std::string Place = InPath + (InFault.Line > 0 ? ":" + std::to_string(InFault.Line) : "");
	return Place + (InFault.Index > 0 ? ": entry " + std::to_string(InFault.Index) : "");
}

void DescribeFaults(const FCommentsReport& InReport, std::vector<std::string>& OutLines)
{
	constexpr std::size_t MostTold = 3;
	const FImportReport& Import = InReport.Import;
	const auto NumBroken = static_cast<int64>(Import.NumBroken);
	const auto NumRepaired = static_cast<int64>(Import.NumRepaired);
	const std::size_t NumTold = std::min(MostTold, Import.Faults.size());
	for (std::size_t Index = 0; Index < NumTold; ++Index)
	{
		OutLines.push_back(DescribePlace(InReport.Path, Import.Faults[Index]) + ": " + Import.Faults[Index].Reason);
	}
	if (NumBroken > 0)
	{
		OutLines.push_back(InReport.Path + ": " + FormatCount(NumBroken) +
						   (NumBroken == 1 ? " entry is broken and left out" : " entries are broken and left out"));
	}
	if (NumRepaired > 0)
	{
		OutLines.push_back(InReport.Path + ": " + CountComments(NumRepaired) +
						   (NumRepaired == 1 ? " is damaged, but could be used" : " are damaged, but could be used"));
	}
}

/** "3 scripts" among others; nothing for none. */
void Count(uint64 InCount, const char* InWhat, std::string& InOutList)
{
	if (InCount > 0)
	{
		InOutList += (InOutList.empty() ? "" : ", ") + FormatCount(static_cast<int64>(InCount)) + " " + InWhat;
	}
}

void DescribeSkipped(const FCommentsReport& InReport, std::vector<std::string>& OutLines)
{
	std::string Skipped;
	for (const FSkippedEntries& Entries : InReport.Import.Skipped)
	{
		Skipped +=
			(Skipped.empty() ? "" : ", ") + Entries.What + " (" + FormatCount(static_cast<int64>(Entries.Num)) + ")";
	}
	if (!Skipped.empty())
	{
		const auto NumSkipped = static_cast<int64>(InReport.Import.CountSkipped());
		OutLines.push_back(InReport.Path + ": " + FormatCount(NumSkipped) +
						   (NumSkipped == 1 ? " entry is no comment for viewers and not shown: "
											: " entries are no comments for viewers and not shown: ") +
						   Skipped);
	}
}

} // namespace

std::string FormatCount(int64 InCount)
{
	std::string Text = std::to_string(InCount);
	for (std::size_t Place = Text.size(); Place > 3;)
	{
		Place -= 3;
		Text.insert(Place, ",");
	}
	return Text;
}

std::string CountComments(int64 InCount)
{
	return FormatCount(InCount) + (InCount == 1 ? " comment" : " comments");
}

std::string DescribeImport(const FCommentsReport& InReport)
{
	return InReport.Path + ": read as " + std::string(ToText(InReport.Import.Format)) + ", " +
		   CountComments(static_cast<int64>(InReport.Import.NumRead));
}

std::string DescribeCrowd(int64 InCount)
{
	return CountComments(InCount) + (InCount == 1 ? " is" : " are") + " left out, because more than " +
		   FormatCount(MostPerSecond) + " come in the same second";
}

std::vector<std::string> DescribeLosses(const FCommentsReport& InReport)
{
	std::vector<std::string> Lines;
	for (const std::string& Warning : InReport.Import.Warnings)
	{
		Lines.push_back(InReport.Path + ": " + Warning);
	}
	DescribeFaults(InReport, Lines);
	DescribeSkipped(InReport, Lines);
	const FKindCounts& Kinds = InReport.Kinds;
	std::string Dropped;
	Count(Kinds.NumReverseDropped, "from left to right", Dropped);
	Count(Kinds.NumPositionedDropped, "positioned", Dropped);
	Count(Kinds.NumDrawingsDropped, "pieces of positioned drawings", Dropped);
	Count(Kinds.NumScriptsDropped, "that draw by a program", Dropped);
	Count(Kinds.NumPaidDropped, "paid", Dropped);
	Count(Kinds.NumUnknownDropped, "of unknown kinds", Dropped);
	if (!Dropped.empty())
	{
		const auto NumDropped = static_cast<int64>(Kinds.CountDropped());
		Lines.push_back(InReport.Path + ": " + CountComments(NumDropped) + (NumDropped == 1 ? " is" : " are") +
						" not served: " + Dropped);
	}
	std::string Turned;
	Count(Kinds.NumReverseTurned, "from left to right, which scroll", Turned);
	Count(Kinds.NumPositionedTurned, "positioned, which stand at the top", Turned);
	Count(Kinds.NumPaidTurned, "paid, which stand at the top", Turned);
	Count(InReport.Import.NumEmotes, "pictures within texts, of which the names are shown", Turned);
	Count(InReport.NumFitted, "of many lines, which are made smaller to fit", Turned);
	if (!Turned.empty())
	{
		Lines.push_back(InReport.Path + ": shown otherwise than meant: " + Turned);
	}
	if (InReport.NumCrowdedOut > 0)
	{
		Lines.push_back(InReport.Path + ": " + DescribeCrowd(InReport.NumCrowdedOut));
	}
	return Lines;
}

std::string DescribeRule(const FFilterRule& InRule)
{
	std::string Text = InRule.Name + ": " + CountComments(InRule.NumTaken) + " taken out";
	if (InRule.NumChanged > 0)
	{
		Text +=
			", " + FormatCount(InRule.NumChanged) + (InRule.NumChanged == 1 ? " stands for them" : " stand for them");
	}
	return Text;
}

} // namespace Flitmark
