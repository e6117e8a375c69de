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
};

} // namespace Flitmark
