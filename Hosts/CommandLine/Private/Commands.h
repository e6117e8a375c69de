#pragma once

namespace CLI
{
class App;
}

namespace Flitmark
{

/** Each adds one command to the program; running it sets the program's exit status. */
void AddBurnCommand(CLI::App& InApp, int& OutExitCode);
void AddCheckCommand(CLI::App& InApp, int& OutExitCode);
void AddConvertCommand(CLI::App& InApp, int& OutExitCode);
void AddOverlayCommand(CLI::App& InApp, int& OutExitCode);
void AddReflectCommand(CLI::App& InApp, int& OutExitCode);
void AddShotCommand(CLI::App& InApp, int& OutExitCode);
void AddStatsCommand(CLI::App& InApp, int& OutExitCode);
void AddTraceCommand(CLI::App& InApp, int& OutExitCode);

} // namespace Flitmark
