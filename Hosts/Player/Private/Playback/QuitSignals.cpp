#include "Playback/QuitSignals.h"

#include <QCoreApplication>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace Flitmark
{

namespace
{

constexpr int Signals[] = {SIGINT, SIGTERM, SIGHUP};

/** Read end, write end. */
std::array<int, 2> Pipe{-1, -1};

void OnSignal(int InSignal)
{
	// A second one kills the program.
	std::signal(InSignal, SIG_DFL);
	const char Byte = 0;
	[[maybe_unused]] const ssize_t Written = write(Pipe[1], &Byte, 1);
}

} // namespace

FQuitSignals::FQuitSignals()
{
	if (pipe2(Pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
	{
		return;
	}
	Notifier = std::make_unique<QSocketNotifier>(Pipe[0], QSocketNotifier::Read);
	QObject::connect(Notifier.get(), &QSocketNotifier::activated, [] { QCoreApplication::quit(); });
	for (const int Signal : Signals)
	{
		std::signal(Signal, OnSignal);
	}
}

FQuitSignals::~FQuitSignals()
{
	if (!Notifier)
	{
		return;
	}
	for (const int Signal : Signals)
	{
		std::signal(Signal, SIG_DFL);
	}
	Notifier.reset();
	close(Pipe[0]);
	close(Pipe[1]);
}

} // namespace Flitmark
