#pragma once

#include <string>

namespace Flitmark
{

/** The text of one of FFmpeg's error codes. */
std::string AvErrorText(int InCode);

/**
 * Keeps FFmpeg's own log off the terminal and remembers its latest error lines, which often say better what is wrong
 * than the code does. One for the process, as FFmpeg's log is.
 */
class FAvLog
{
public:
	/** Takes the log over (once) and forgets what it said so far. */
	static void Start();

	/** AvErrorText, followed by what the log said since Start in brackets. */
	static std::string Explain(int InCode);
};

} // namespace Flitmark
