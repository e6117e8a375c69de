#include "FormatsKit.h"

#include "Filtering/KindPolicy.h"
#include "Formats/CleanText.h"
#include "ImportSink.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <numeric>

namespace Flitmark
{

void Require(bool bInHolds, const char* InWhat)
{
	if (!bInHolds)
	{
		std::fprintf(stderr, "does not hold: %s\n", InWhat);
		std::abort();
	}
}

void CheckResult(const FImportResult& InResult)
{
	const FImportReport& Report = InResult.Report;
	Require(Report.NumRead == InResult.Comments.size(), "as many comments as were counted");
	Require(std::accumulate(Report.NumOfKind.begin(), Report.NumOfKind.end(), uint64{0}) == Report.NumRead,
			"each comment has a kind");
	Require(Report.NumRead + Report.NumBroken + Report.CountSkipped() == Report.NumEntries,
			"each entry is read, broken or skipped");
	Require(Report.Skipped.size() <= FImportReport::MaxSkippedSorts, "sorts do not grow without end");
	Require(std::ranges::none_of(Report.Skipped,
								 [](const FSkippedEntries& InSort) { return InSort.Num == 0 || InSort.What.empty(); }),
			"each sort has a name and entries");
	Require(Report.NumRepaired <= Report.NumRead, "what is repaired is read");
	Require(Report.Faults.size() == std::min<uint64>(Report.NumBroken + Report.NumRepaired, FImportReport::MaxFaults),
			"the first faults are reported");
	for (const FServiceComment& Comment : InResult.Comments)
	{
		Require(MakeCleanText(Comment.Text) == Comment.Text, "texts are clean");
		Require(MakeCleanText(Comment.UserName) == Comment.UserName, "names are clean");
		std::string Source = Comment.Source;
		MakeUtf8(Source);
		Require(Source == Comment.Source, "sources are UTF-8");
	}
	for (const bool bKeeps : {true, false})
	{
		std::vector<FServiceComment> Kept = InResult.Comments;
		const FKindCounts Counts = ApplyKindPolicy(Kept, {bKeeps, bKeeps, bKeeps});
		Require(Kept.size() + Counts.CountDropped() == Report.NumRead, "each comment is kept or dropped for a reason");
	}
}

void ImportChecked(std::string_view InBytes, EFormatSyntax InSyntax)
{
	for (const FCommentFormat* const Format : GetCommentFormats())
	{
		if (Format->Syntax == InSyntax)
		{
			FMemorySource Source(InBytes, InBytes.size() + 1);
			FImportResult Result;
			FImportSink Sink(Result, InBytes.size());
			std::string Error;
			Format->Read(Source, Sink, Error);
			CheckResult(Result);
		}
	}
}

} // namespace Flitmark
