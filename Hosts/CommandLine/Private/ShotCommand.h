#pragma once

namespace CLI
{
class App;
}

namespace Flitmark
{

/** Adds the command that paints comments into one frame of a video. */
void AddShotCommand(CLI::App& App, int& OutExitCode);

} // namespace Flitmark
