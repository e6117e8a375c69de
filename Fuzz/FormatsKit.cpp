#include "FormatsKit.h"

#include "Formats/CleanText.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <numeric>

namespace Flitmark
{

std::size_t FBytesSource::Read(char* OutData, std::size_t InSize)
{
	const std::size_t Size = Bytes.copy(OutData, std::min(InSize, PieceSize), Place);
	Place += Size;
	return Size;
}

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
	Require(Report.NumRead == InResult.Comments.size(), "as many comments as were read");
	Require(std::accumulate(Report.NumOfKind.begin(), Report.NumOfKind.end(), uint64{0}) == Report.NumRead,
			"each comment has a kind");
	Require(Report.NumMended <= Report.NumRead, "what is mended is read");
	Require(Report.Faults.size() == std::min<uint64>(Report.NumBroken + Report.NumMended, FImportReport::MaxFaults),
			"the first faults are told");
	for (const FServiceComment& Comment : InResult.Comments)
	{
		Require(MakeCleanText(Comment.Text) == Comment.Text, "texts are clean");
		Require(MakeCleanText(Comment.UserName) == Comment.UserName, "names are clean");
		std::string Source = Comment.Source;
		MakeUtf8(Source);
		Require(Source == Comment.Source, "sources are UTF-8");
	}
}

FImportResult ImportChecked(std::string_view InBytes, const FImporter& InImporter)
{
	FBytesSource Source(InBytes, InBytes.size() + 1);
	FImportResult Result;
	FImportSink Sink(Result, InBytes.size());
	InImporter(Source, Sink);
	CheckResult(Result);
	return Result;
}

} // namespace Flitmark
