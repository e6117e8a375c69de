#pragma once

#include "Video/VideoBurn.h"

#include <chrono>
#include <string>

namespace Flitmark
{

/** Reports the progress of a burn on standard error: a bar on a terminal, a line every few seconds elsewhere. */
class FBurnProgress final : public IBurnProgress
{
public:
	FBurnProgress();

	void OnFrame(const FBurnState& InState) override;
	void OnMessage(const std::string& InMessage) override;

	/** Takes the bar off the terminal. */
	void Clear();

	/** "900 frames, 0:30, in 2.9 s (310 frames/s, 10.3 x)". */
	std::string Summary() const;

private:
	using FClock = std::chrono::steady_clock;

	double Elapsed() const;
	/** "312 frames/s, 10.4 x, 0:12 left". */
	std::string Pace() const;
	std::string Bar() const;

	const bool bTerminal;
	const FClock::time_point Start;
	FClock::time_point LastTold;
	FBurnState State;
	bool bDrawn = false;
};

} // namespace Flitmark
