#pragma once

namespace CLI
{
class App;
}

namespace Flitmark
{

/** Adds the command that makes our document of files of comments in any format. */
void AddConvertCommand(CLI::App& App, int& OutExitCode);

} // namespace Flitmark
