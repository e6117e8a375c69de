#pragma once

namespace Flitmark
{

/** What the program's exit status says; 128 and a signal's number where a signal stopped the work. */
constexpr int ExitSuccess = 0;
constexpr int ExitFailure = 1;
constexpr int ExitWrongUse = 2;

} // namespace Flitmark
