#pragma once

#include <atomic>

namespace Flitmark
{

/**
 * While it lives, Ctrl-C, a request to end and a terminal that closes only set a flag, so that work can be stopped
 * cleanly. One at a time.
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
