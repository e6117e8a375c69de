#include "Commands.h"
#include "ExitCodes.h"
#include "Files/ExceptionText.h"
#include "Message.h"
#include "StopSignals.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>
#include <string>

namespace Flitmark
{

namespace
{

constexpr const char* Description = "flitmark: timed comments flying over a video";

constexpr const char* Footer =
	R"(Exit status: 0 for success, 1 for failure, 2 for wrong usage, 128 plus the signal number if interrupted.

Examples:
  flitmark burn film.mp4 comments.json -o out.mp4
  flitmark overlay comments.json -o comments.mov --like film.mp4
  flitmark shot film.mp4 comments.json --at 1:23 -o picture.png
  flitmark check comments.json
  flitmark convert comments.xml -o comments.json
  flitmark stats comments.xml -o density.svg
  flitmark trace comments.json

"flitmark COMMAND --help" describes a command.)";

/** Prints the help that was asked for, or what was wrong and where to read on. */
int Explain(const CLI::App& InApp, const CLI::ParseError& InError, const std::string& InFirstArgument)
{
	if (InError.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success))
	{
		return InApp.exit(InError);
	}
	std::string Command = "flitmark";
	for (const CLI::App* Chosen : InApp.get_subcommands())
	{
		Command += " " + Chosen->get_name();
	}
	std::string Reason = InError.what();
	if (InApp.get_subcommands().empty())
	{
		Reason = InFirstArgument.empty()
					 ? "no command given"
					 : std::string("unknown ") + (InFirstArgument[0] == '-' ? "option" : "command") + " \"" +
						   InFirstArgument + "\"";
	}
	PrintPlainError(Command + ": " + Reason + "; see \"" + Command + " --help\"");
	return ExitWrongUse;
}

int Run(int InNumArguments, char** InArguments)
{
	int ExitCode = ExitSuccess;
	CLI::App App(Description, "flitmark");
	App.set_version_flag("--version", FLITMARK_VERSION, "Print the version and exit");
	App.set_help_flag("-h,--help", "Print this help and exit");
	App.require_subcommand(1);
	App.get_formatter()->column_width(24);
	for (const auto& [Theirs, Ours] : {std::pair("SUBCOMMAND", "COMMAND"), std::pair("Positionals", "Arguments"),
									   std::pair("REQUIRED", "(required)"), std::pair("FLOAT", "NUMBER"),
									   std::pair("INT", "N"), std::pair("UINT", "N")})
	{
		App.get_formatter()->label(Theirs, Ours);
	}
	App.footer(Footer);
	AddBurnCommand(App, ExitCode);
	AddOverlayCommand(App, ExitCode);
	AddShotCommand(App, ExitCode);
	AddCheckCommand(App, ExitCode);
	AddConvertCommand(App, ExitCode);
	AddStatsCommand(App, ExitCode);
	AddTraceCommand(App, ExitCode);
	AddReflectCommand(App, ExitCode);
	for (CLI::App* const Command : App.get_subcommands({}))
	{
		Command->group("Commands");
	}
	try
	{
		App.parse(InNumArguments, InArguments);
	}
	catch (const CLI::ParseError& Error)
	{
		return Explain(App, Error, InNumArguments > 1 ? InArguments[1] : "");
	}
	return ExitCode;
}

} // namespace

} // namespace Flitmark

int main(int InNumArguments, char** InArguments)
{
	int ExitCode = Flitmark::ExitFailure;
	Flitmark::CleanUpOnSignals();
	try
	{
		ExitCode = Flitmark::Run(InNumArguments, InArguments);
	}
	catch (const std::exception& Exception)
	{
		return Flitmark::PrintError(Flitmark::ExplainException(Exception));
	}
	// A full disk only shows now.
	if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
	{
		return Flitmark::PrintError("standard output: cannot be written; is the disk full?");
	}
	return ExitCode;
}
