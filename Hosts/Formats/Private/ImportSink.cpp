#include "ImportSink.h"

#include <algorithm>

namespace Flitmark
{

void FImportSink::Add(FServiceComment&& InComment, uint64 InOffset)
{
	if (Result.Comments.size() == Result.Comments.capacity())
	{
		Reserve(InOffset);
	}
	++Result.Report.NumRead;
	++Result.Report.NumOfKind[static_cast<std::size_t>(InComment.Kind)];
	Result.Comments.push_back(std::move(InComment));
}

void FImportSink::AddBroken(uint64 InLine, std::string InReason)
{
	++Result.Report.NumBroken;
	AddFault(InLine, std::move(InReason));
}

void FImportSink::AddSkipped(std::string_view InWhat)
{
	std::vector<FSkippedEntries>& Skipped = Result.Report.Skipped;
	auto Sort = std::ranges::find(Skipped, InWhat, &FSkippedEntries::What);
	if (Sort == Skipped.end() && Skipped.size() < FImportReport::MaxSkippedSorts)
	{
		Sort = Skipped.insert(Sort, {std::string(InWhat), 0});
	}
	else if (Sort == Skipped.end())
	{
		--Sort;
		Sort->What = "others";
	}
	++Sort->Num;
}

void FImportSink::AddRepaired(uint64 InLine, std::string InReason)
{
	++Result.Report.NumRepaired;
	AddFault(InLine, std::move(InReason));
}

void FImportSink::AddFault(uint64 InLine, std::string&& InReason)
{
	FImportReport& Report = Result.Report;
	if (Report.Faults.size() < FImportReport::MaxFaults)
	{
		Report.Faults.push_back({InLine, Report.NumEntries, std::move(InReason)});
	}
}

/** Doubles at first, then makes room for what the rest of the file will need, so that growing copies little. */
void FImportSink::Reserve(uint64 InOffset)
{
	constexpr std::size_t EnoughToEstimate = 1024;
	const std::size_t Size = Result.Comments.size();
	std::size_t Wanted = std::max<std::size_t>(64, Size * 2);
	if (Size >= EnoughToEstimate && FileSize > InOffset)
	{
		const double PerComment = static_cast<double>(InOffset) / static_cast<double>(Size);
		const double Expected = static_cast<double>(FileSize) / PerComment * 1.02;
		Wanted = std::min(Wanted * 32, std::max(Size + Size / 8, static_cast<std::size_t>(Expected)));
	}
	Result.Comments.reserve(Wanted);
}

} // namespace Flitmark
