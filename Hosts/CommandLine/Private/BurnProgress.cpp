#include "BurnProgress.h"

#include "Comments/CommentsReport.h"
#include "Message.h"
#include "TerminalText.h"
#include "Values/TimeText.h"

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace Flitmark
{

namespace
{

constexpr std::chrono::milliseconds BarPeriod(100);
constexpr std::chrono::seconds LinePeriod(5);

template <class... FParts>
std::string Format(const char* InFormat, FParts... InParts)
{
	char Text[128];
	std::snprintf(Text, sizeof(Text), InFormat, InParts...);
	return Text;
}

double DoneShare(const FBurnState& InState)
{
	return InState.TotalSeconds > 0.0 ? std::min(1.0, InState.DoneSeconds / InState.TotalSeconds) : 0.0;
}

} // namespace

FBurnProgress::FBurnProgress()
	: bTerminal(isatty(STDERR_FILENO) != 0)
	, Start(FClock::now())
	, LastTold(Start)
{
}

double FBurnProgress::Elapsed() const
{
	return std::max(1e-3, std::chrono::duration<double>(FClock::now() - Start).count());
}

std::string FBurnProgress::Pace() const
{
	const double Seconds = Elapsed();
	std::string Text =
		Format("%.0f frames/s, %.1f x", static_cast<double>(State.Frames) / Seconds, State.DoneSeconds / Seconds);
	if (State.TotalSeconds > 0.0 && State.DoneSeconds > 0.0)
	{
		const double Left = std::max(0.0, State.TotalSeconds - State.DoneSeconds) * Seconds / State.DoneSeconds;
		Text += ", " + FormatTime(Left + 0.5) + " left";
	}
	return Text;
}

std::string FBurnProgress::Bar() const
{
	const std::string Rest = State.TotalSeconds > 0.0 ? Format(" %3.0f %%  ", 100.0 * DoneShare(State)) + Pace()
													  : " " + FormatTime(State.DoneSeconds) + "  " + Pace();
	// Brackets, and a last column that stays free, since writing there breaks the line on some terminals.
	constexpr std::size_t Frame = 3;
	constexpr std::size_t Longest = 40;
	constexpr std::size_t UsualWidth = 80;
	const std::size_t Width = GetTerminalWidth(stderr).value_or(UsualWidth);
	const std::size_t Room = Width > Rest.size() + Frame ? std::min(Longest, Width - Rest.size() - Frame) : 0;
	if (Room == 0 || State.TotalSeconds <= 0.0)
	{
		return Rest.substr(0, Width - 1);
	}
	const auto Filled = static_cast<std::size_t>(DoneShare(State) * static_cast<double>(Room));
	return "[" + std::string(Filled, '#') + std::string(Room - Filled, '.') + "]" + Rest;
}

void FBurnProgress::OnFrame(const FBurnState& InState)
{
	State = InState;
	const FClock::time_point Now = FClock::now();
	if (Now - LastTold < (bTerminal ? FClock::duration(BarPeriod) : FClock::duration(LinePeriod)))
	{
		return;
	}
	LastTold = Now;
	if (bTerminal)
	{
		std::fputs(("\r\033[K" + Bar()).c_str(), stderr);
		bDrawn = true;
		return;
	}
	const std::string Whole = State.TotalSeconds > 0.0 ? " of " + FormatTime(State.TotalSeconds) : std::string();
	PrintNote(FormatTime(State.DoneSeconds) + Whole + " done, " + Pace());
}

void FBurnProgress::OnMessage(const std::string& InMessage)
{
	Clear();
	PrintNote(InMessage);
}

void FBurnProgress::Clear()
{
	if (bDrawn)
	{
		std::fputs("\r\033[K", stderr);
		bDrawn = false;
	}
}

std::string FBurnProgress::Summary() const
{
	const double Seconds = Elapsed();
	return FormatCount(State.Frames) + (State.Frames == 1 ? " frame" : " frames") + ", " +
		   FormatTime(State.DoneSeconds + 0.5) +
		   Format(", in %.1f s (%.0f frames/s, %.1f x)", Seconds, static_cast<double>(State.Frames) / Seconds,
				  State.DoneSeconds / Seconds);
}

} // namespace Flitmark
