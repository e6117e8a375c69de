#pragma once

#include <QSocketNotifier>

#include <memory>

namespace Flitmark
{

/** While it exists, signals to terminate (such as Ctrl+C) close the program the way the viewer would. */
class FQuitSignals
{
public:
	FQuitSignals();
	~FQuitSignals();
	FQuitSignals(const FQuitSignals&) = delete;
	FQuitSignals& operator=(const FQuitSignals&) = delete;

private:
	/** A signal handler can do little more than write to a pipe. */
	std::unique_ptr<QSocketNotifier> Notifier;
};

} // namespace Flitmark
