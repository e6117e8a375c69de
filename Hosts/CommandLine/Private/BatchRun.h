#pragma once

#include "StopSignals.h"

#include <functional>
#include <string>
#include <vector>

namespace Flitmark
{

enum class EBatchState
{
	Done,
	Failed,
	/** There was nothing to do; no failure. */
	Skipped,
	/** A signal came. */
	Stopped
};

/** How one of many files ended, and what there is to say about it. */
struct FBatchEnd
{
	EBatchState State = EBatchState::Done;
	std::string Text;
};

/** One of many files. */
struct FBatchJob
{
	/** The file's, for people. */
	std::string Name;
	std::function<FBatchEnd(const FStopSignals& InSignals)> Run;
};

/**
 * Runs one job after the other, whatever becomes of them, until a signal comes; then prints a table of what was done on
 * standard output. Gives the exit status: a failure if any job failed or all were skipped.
 */
int RunBatch(const std::vector<FBatchJob>& InJobs);

/** Makes the folder that a batch writes into, unless it is there; false with OutError set where that fails. */
bool MakeBatchFolder(const std::string& InFolder, std::string& OutError);

} // namespace Flitmark
