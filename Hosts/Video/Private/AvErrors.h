#pragma once

#include <string>

namespace Flitmark
{

/** The text of one of FFmpeg's error codes. */
std::string AvErrorText(int InCode);

/**
 * Keeps FFmpeg's log off the terminal and remembers its latest error lines, which often describe the problem better
 * than the error code. One per process, like FFmpeg's log.
 */
class FAvLog
{
public:
	/** Takes over the log (once) and clears it. */
	static void Start();

	/** AvErrorText, followed by what was logged since Start, in parentheses. */
	static std::string Explain(int InCode);

	/** Adds a line to what was logged. */
	static void Add(const std::string& InLine);
};

/**
 * While it lives, what goes to standard error is kept instead, for FAvLog: some encoders write to the terminal, bypassing
 * FFmpeg's log. Brief, and on one thread; all that others write in that time is kept, too.
 */
class FStrayOutput
{
public:
	FStrayOutput();
	~FStrayOutput();
	FStrayOutput(const FStrayOutput&) = delete;
	FStrayOutput& operator=(const FStrayOutput&) = delete;

private:
	/** Negative where nothing is kept. */
	int Kept = -1;
	int Terminal = -1;
};

} // namespace Flitmark
