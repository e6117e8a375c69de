#include "Activity.h"

#include "TerminalText.h"

#include <chrono>
#include <cstdio>
#include <unistd.h>

namespace Flitmark
{

namespace
{

using FClock = std::chrono::steady_clock;

constexpr std::chrono::seconds Patience(1);
constexpr std::chrono::milliseconds Period(250);

/** The terminal's line, which notes share. */
std::mutex LineMutex;
bool bLineShown = false;

void ClearLine()
{
	if (bLineShown)
	{
		std::fputs("\r\033[K", stderr);
		bLineShown = false;
	}
}

void ShowLine(const std::string& InText)
{
	const std::lock_guard Lock(LineMutex);
	// The last column stays free, since writing there breaks the line on some terminals.
	const std::size_t Width = GetTerminalWidth(stderr).value_or(80);
	std::fputs(("\r" + CutToColumns(InText, Width > 1 ? Width - 1 : 1) + "\033[K").c_str(), stderr);
	bLineShown = true;
}

} // namespace

FActivity::FActivity(std::string InWhat)
	: What(std::move(InWhat))
{
	if (isatty(STDERR_FILENO) != 0)
	{
		Thread = std::jthread([this](std::stop_token InStop) { Work(InStop); });
	}
}

FActivity::~FActivity()
{
	Thread = std::jthread();
	Clear();
}

void FActivity::SetWhat(std::string InWhat)
{
	const std::lock_guard Lock(Mutex);
	What = std::move(InWhat);
	Share = 0.0;
}

void FActivity::SetShare(double InShare)
{
	const std::lock_guard Lock(Mutex);
	Share = InShare;
}

void FActivity::Clear()
{
	const std::lock_guard Lock(LineMutex);
	ClearLine();
}

void FActivity::Work(std::stop_token InStop)
{
	const FClock::time_point Start = FClock::now();
	std::unique_lock Lock(Mutex);
	Wake.wait_for(Lock, InStop, Patience, [] { return false; });
	while (!InStop.stop_requested())
	{
		const auto Seconds = std::chrono::duration_cast<std::chrono::seconds>(FClock::now() - Start).count();
		const int Percent = static_cast<int>(Share * 100.0);
		ShowLine(What + (Percent > 0 ? ", " + std::to_string(Percent) + " %, " : ", ") + std::to_string(Seconds) +
				 " s");
		Wake.wait_for(Lock, InStop, Period, [] { return false; });
	}
}

} // namespace Flitmark
