#pragma once

#include <string>
#include <utility>

namespace Flitmark
{

/** Outcome of an operation on a video. */
enum class EVideoOutcome
{
	Done,
	Failed,
	Canceled,
};

/** An outcome and, if it failed, a message: what failed, where, and what to do. */
struct FVideoResult
{
	EVideoOutcome Outcome = EVideoOutcome::Done;
	std::string Error;

	bool IsDone() const { return Outcome == EVideoOutcome::Done; }
	static FVideoResult Fail(std::string InError) { return {EVideoOutcome::Failed, std::move(InError)}; }
};

} // namespace Flitmark
