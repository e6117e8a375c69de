#include "StopSignals.h"

#include "Files/TemporaryNames.h"

#include <csignal>

namespace Flitmark
{

namespace
{

/** What people and terminals send, and what else ends a program that does nothing wrong. */
constexpr int EndSignals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE, SIGXCPU};

std::atomic<bool> bListening = false;
std::atomic<bool> bStop = false;
volatile std::sig_atomic_t LastSignal = 0;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler may not lock");

struct sigaction EarlierPipe;

bool CanWait(int InSignal)
{
	return InSignal == SIGINT || InSignal == SIGTERM || InSignal == SIGHUP;
}

void OnEnd(int InSignal)
{
	if (bListening && CanWait(InSignal) && !bStop.exchange(true))
	{
		LastSignal = InSignal;
		return;
	}
	FTemporaryName::RemoveAll();
	// Takes effect when the handler returns, so that whoever waits for the program sees what ended it.
	std::signal(InSignal, SIG_DFL);
	std::raise(InSignal);
}

} // namespace

void CleanUpOnSignals()
{
	struct sigaction Action = {};
	Action.sa_handler = &OnEnd;
	Action.sa_flags = SA_RESTART;
	sigemptyset(&Action.sa_mask);
	for (const int Signal : EndSignals)
	{
		struct sigaction Earlier = {};
		sigaction(Signal, nullptr, &Earlier);
		// Whoever starts a program with a signal ignored, as nohup does, wants it to keep running.
		if (Earlier.sa_handler != SIG_IGN)
		{
			sigaction(Signal, &Action, nullptr);
		}
	}
	// A file that becomes larger than allowed is then an error of the write, which says so.
	std::signal(SIGXFSZ, SIG_IGN);
}

FStopSignals::FStopSignals()
{
	bStop = false;
	bListening = true;
	// Losing the reader of our messages is no reason to leave the work undone.
	struct sigaction Action = {};
	Action.sa_handler = SIG_IGN;
	sigemptyset(&Action.sa_mask);
	sigaction(SIGPIPE, &Action, &EarlierPipe);
}

FStopSignals::~FStopSignals()
{
	bListening = false;
	sigaction(SIGPIPE, &EarlierPipe, nullptr);
}

const std::atomic<bool>& FStopSignals::GetFlag() const
{
	return bStop;
}

int FStopSignals::GetExitCode() const
{
	return 128 + static_cast<int>(LastSignal);
}

} // namespace Flitmark
