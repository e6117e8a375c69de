#include "BatchRun.h"

#include "Comments/CommentsReport.h"
#include "ExitCodes.h"
#include "Files/ExceptionText.h"
#include "Message.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <exception>
#include <filesystem>

namespace Flitmark
{

namespace
{

constexpr std::array<const char*, 4> StateNames = {"done", "failed", "skipped", "stopped"};

const char* NameOf(EBatchState InState)
{
	return StateNames[static_cast<std::size_t>(InState)];
}

FBatchEnd RunJob(const FBatchJob& InJob, const FStopSignals& InSignals)
try
{
	return InJob.Run(InSignals);
}
catch (const std::exception& Exception)
{
	return {EBatchState::Failed, ExplainException(Exception)};
}

void PrintTable(const std::vector<FBatchJob>& InJobs, const std::vector<FBatchEnd>& InEnds)
{
	std::array<int64, StateNames.size()> Counts{};
	for (std::size_t Index = 0; Index < InEnds.size(); ++Index)
	{
		const FBatchEnd& End = InEnds[Index];
		++Counts[static_cast<std::size_t>(End.State)];
		PrintReport("%-8s %s%s\n", std::string(NameOf(End.State)), InJobs[Index].Name,
					(End.Text.empty() ? "" : ": ") + End.Text);
	}
	std::string Sum;
	for (std::size_t State = 0; State < Counts.size(); ++State)
	{
		if (Counts[State] > 0)
		{
			Sum += (Sum.empty() ? "" : ", ") + FormatCount(Counts[State]) + " " + StateNames[State];
		}
	}
	const int64 NumLeft = static_cast<int64>(InJobs.size() - InEnds.size());
	Sum += NumLeft > 0 ? ", " + FormatCount(NumLeft) + " not begun" : "";
	PrintReport("%s\n", Sum);
}

} // namespace

int RunBatch(const std::vector<FBatchJob>& InJobs)
{
	const FStopSignals Signals;
	std::vector<FBatchEnd> Ends;
	while (Ends.size() < InJobs.size() && !Signals.GetFlag())
	{
		const FBatchJob& Job = InJobs[Ends.size()];
		PrintNote("[" + std::to_string(Ends.size() + 1) + "/" + std::to_string(InJobs.size()) + "] " + Job.Name);
		Ends.push_back(RunJob(Job, Signals));
		if (Ends.back().State == EBatchState::Failed)
		{
			PrintError(Ends.back().Text);
		}
	}
	PrintTable(InJobs, Ends);
	const auto Has = [&Ends](EBatchState InState)
	{
		return std::ranges::any_of(Ends, [InState](const FBatchEnd& In) { return In.State == InState; });
	};
	if (Has(EBatchState::Stopped) || Ends.size() < InJobs.size())
	{
		return Signals.GetExitCode();
	}
	return Has(EBatchState::Failed) || !Has(EBatchState::Done) ? ExitFailure : ExitSuccess;
}

bool MakeBatchFolder(const std::string& InFolder, std::string& OutError)
{
	std::error_code Error;
	std::filesystem::create_directories(InFolder, Error);
	if (!Error && !std::filesystem::is_directory(InFolder, Error))
	{
		Error = std::make_error_code(std::errc::not_a_directory);
	}
	OutError = Error ? InFolder + ": cannot be made as a folder: " + Error.message() : "";
	return !Error;
}

} // namespace Flitmark
