#pragma once

#include <QSocketNotifier>

#include <memory>

namespace Flitmark
{

/** While one lives, signals that ask the program to end (such as Ctrl+C) close it as the viewer would. */
class FQuitSignals
{
public:
	FQuitSignals();
	~FQuitSignals();
	FQuitSignals(const FQuitSignals&) = delete;
	FQuitSignals& operator=(const FQuitSignals&) = delete;

private:
	/** Signal handlers may do little more than write to a pipe. */
	std::unique_ptr<QSocketNotifier> Notifier;
};

} // namespace Flitmark
