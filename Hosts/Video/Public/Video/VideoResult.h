#pragma once

#include <string>
#include <utility>

namespace Flitmark
{

/** How a piece of work on a video ended. */
enum class EVideoOutcome
{
	Done,
	Failed,
	Cancelled,
};

/** An outcome, with what failed, where, and what to do where it failed. */
struct FVideoResult
{
	EVideoOutcome Outcome = EVideoOutcome::Done;
	std::string Error;

	bool IsDone() const { return Outcome == EVideoOutcome::Done; }
	static FVideoResult Fail(std::string InError) { return {EVideoOutcome::Failed, std::move(InError)}; }
};

} // namespace Flitmark
