#pragma once

namespace CLI
{
class App;
}

namespace Flitmark
{

/** Adds the command that tells what a viewer of a document will not see. */
void AddCheckCommand(CLI::App& App, int& OutExitCode);

} // namespace Flitmark
