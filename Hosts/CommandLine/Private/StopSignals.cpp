#include "StopSignals.h"

#include <array>
#include <csignal>
#include <cstddef>

namespace Flitmark
{

namespace
{

constexpr int StopSignals[] = {SIGINT, SIGTERM, SIGHUP};
constexpr std::size_t NumStopSignals = sizeof(StopSignals) / sizeof(StopSignals[0]);

std::atomic<bool> bStop = false;
volatile std::sig_atomic_t LastSignal = 0;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler may not lock");

std::array<struct sigaction, NumStopSignals> Earlier;
struct sigaction EarlierPipe;

void OnStop(int InSignal)
{
	LastSignal = InSignal;
	bStop = true;
}

} // namespace

FStopSignals::FStopSignals()
{
	bStop = false;
	struct sigaction Action = {};
	Action.sa_handler = &OnStop;
	Action.sa_flags = SA_RESTART;
	sigemptyset(&Action.sa_mask);
	for (std::size_t Index = 0; Index < NumStopSignals; ++Index)
	{
		sigaction(StopSignals[Index], &Action, &Earlier[Index]);
		// Whoever starts a program with a signal ignored, as nohup does, wants it to keep running.
		if (Earlier[Index].sa_handler == SIG_IGN)
		{
			sigaction(StopSignals[Index], &Earlier[Index], nullptr);
		}
	}
	// Losing the reader of our messages is no reason to leave a partial file.
	Action.sa_handler = SIG_IGN;
	sigaction(SIGPIPE, &Action, &EarlierPipe);
}

FStopSignals::~FStopSignals()
{
	for (std::size_t Index = 0; Index < NumStopSignals; ++Index)
	{
		sigaction(StopSignals[Index], &Earlier[Index], nullptr);
	}
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
