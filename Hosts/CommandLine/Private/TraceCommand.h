#pragma once

namespace CLI
{
class App;
}

namespace Flitmark
{

/** Adds `trace`: runs the overlay without a video and writes what happens. OutExitCode is set when it was run. */
void AddTraceCommand(CLI::App& App, int& OutExitCode);

} // namespace Flitmark
