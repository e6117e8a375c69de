#pragma once

#include <atomic>

namespace Flitmark
{

/** From now on a signal that ends the program first removes its unfinished files. Once, when the program starts. */
void CleanUpOnSignals();

/**
 * While it lives, the first Ctrl-C, request to end, or terminal that closes only sets a flag, so that work can be stopped
 * cleanly; a second one ends the program at once. One at a time.
 */
class FStopSignals
{
public:
	FStopSignals();
	~FStopSignals();
	FStopSignals(const FStopSignals&) = delete;
	FStopSignals& operator=(const FStopSignals&) = delete;

	const std::atomic<bool>& GetFlag() const;

	/** The exit status of a program that a signal stopped: 128 and the signal's number. */
	int GetExitCode() const;
};

} // namespace Flitmark
