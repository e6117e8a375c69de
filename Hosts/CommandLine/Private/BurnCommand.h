#pragma once

namespace CLI
{
class App;
}

namespace Flitmark
{

/** Adds the command that paints comments into a video. */
void AddBurnCommand(CLI::App& App, int& OutExitCode);

} // namespace Flitmark
