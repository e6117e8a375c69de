#pragma once

namespace CLI
{
class App;
}

namespace Flitmark
{

/** Adds `reflect`: prints what the loaded module tells the engine about itself. OutExitCode is set when it was run. */
void AddReflectCommand(CLI::App& App, int& OutExitCode);

} // namespace Flitmark
