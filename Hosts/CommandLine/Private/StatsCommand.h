#pragma once

namespace CLI
{
class App;
}

namespace Flitmark
{

/** Adds the command that tells what is in a file of comments, in words and as a picture. */
void AddStatsCommand(CLI::App& App, int& OutExitCode);

} // namespace Flitmark
