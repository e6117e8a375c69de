#include "ViewerReport.h"

#include "Comments/CommentsReport.h"

#include <algorithm>

namespace Flitmark
{

std::string FViewerReport::Describe() const
{
	std::string Text = CountComments(NumComments) + ": shown " + FormatCount(Placed.NumShown);
	const std::pair<const char*, int64> Reasons[] = {
		{"no free lane", Placed.NumNoLane},
		{"no lanes for the mode", Placed.NumUnserved},
		{"no text, size, or color to see", Placed.NumBlank},
		{"over by then", NumOver},
		{"earlier than the start", NumEarly},
		{"later than the end", NumLate},
		{"in a second without a frame", NumPassed},
		{"never due", NumNeverDue},
		{"too many in a second", NumCrowdedOut},
	};
	for (const auto& [Reason, Count] : Reasons)
	{
		Text += Count > 0 ? std::string("; ") + Reason + " " + FormatCount(Count) : "";
	}
	return Text;
}

FDueSeconds::FDueSeconds(const FCommentDocument& InDocument)
{
	Seconds.reserve(InDocument.GetEntries().size());
	for (const FCommentEntry& Entry : InDocument.GetEntries())
	{
		if (Entry.IsReached())
		{
			Seconds.push_back(static_cast<int32>(Entry.GetSecond()));
		}
		else
		{
			++NumNeverDue;
		}
	}
	std::ranges::sort(Seconds);
}

FViewerReport FDueSeconds::Report(int64 InFirst, int64 InLast, const FPlacementCounts& InPlaced) const
{
	const auto Early = std::ranges::lower_bound(Seconds, InFirst) - Seconds.begin();
	const auto Late = Seconds.end() - std::ranges::upper_bound(Seconds, std::max(InFirst - 1, InLast));
	const auto NumReached = static_cast<int64>(Seconds.size());
	FViewerReport Report;
	Report.NumComments = NumReached + NumNeverDue;
	Report.Placed = InPlaced;
	Report.NumEarly = Early;
	Report.NumLate = Late;
	Report.NumPassed = std::max<int64>(0, NumReached - Early - Late - InPlaced.CountAll());
	Report.NumNeverDue = NumNeverDue;
	return Report;
}

} // namespace Flitmark
