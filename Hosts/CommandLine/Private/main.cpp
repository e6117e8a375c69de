#include "BurnCommand.h"
#include "CheckCommand.h"
#include "ConvertCommand.h"
#include "ExitCodes.h"
#include "Message.h"
#include "ReflectCommand.h"
#include "ShotCommand.h"
#include "StatsCommand.h"
#include "TraceCommand.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>
#include <string>

namespace Flitmark
{

namespace
{

constexpr const char* Description = "flitmark: comments that fly over a video";

constexpr const char* Footer = R"(Exit status: 0 for success, 1 for a failure, 2 for wrong use.

Examples:
  flitmark burn film.mp4 comments.json -o out.mp4
  flitmark shot film.mp4 comments.json --at 1:23 -o picture.png
  flitmark check comments.json
  flitmark convert comments.xml -o comments.json
  flitmark stats comments.xml -o density.svg
  flitmark trace comments.json

"flitmark COMMAND --help" tells more about a command.)";

/** What was asked for, or what was wrong about it and where to read on. */
int Explain(const CLI::App& App, const CLI::ParseError& InError, const std::string& InFirstArgument)
{
	if (InError.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success))
	{
		return App.exit(InError);
	}
	std::string Command = "flitmark";
	for (const CLI::App* Chosen : App.get_subcommands())
	{
		Command += " " + Chosen->get_name();
	}
	std::string Reason = InError.what();
	if (App.get_subcommands().empty() && !InFirstArgument.empty())
	{
		Reason = std::string("there is no ") + (InFirstArgument[0] == '-' ? "option" : "command") + " \"" +
				 InFirstArgument + "\"";
	}
	std::fprintf(stderr, "%s: %s; see \"%s --help\"\n", Command.c_str(), Reason.c_str(), Command.c_str());
	return ExitWrongUse;
}

int Run(int ArgumentCount, char** Arguments)
{
	int ExitCode = ExitSuccess;
	CLI::App App(Description, "flitmark");
	App.set_version_flag("--version", FLITMARK_VERSION, "Print the version and exit");
	App.set_help_flag("-h,--help", "Print this text and exit");
	App.require_subcommand(1);
	App.get_formatter()->column_width(24);
	App.footer(Footer);
	AddBurnCommand(App, ExitCode);
	AddShotCommand(App, ExitCode);
	AddCheckCommand(App, ExitCode);
	AddConvertCommand(App, ExitCode);
	AddStatsCommand(App, ExitCode);
	AddTraceCommand(App, ExitCode);
	AddReflectCommand(App, ExitCode);
	try
	{
		App.parse(ArgumentCount, Arguments);
	}
	catch (const CLI::ParseError& Error)
	{
		return Explain(App, Error, ArgumentCount > 1 ? Arguments[1] : "");
	}
	return ExitCode;
}

} // namespace

} // namespace Flitmark

int main(int ArgumentCount, char** Arguments)
{
	int ExitCode = Flitmark::ExitFailure;
	try
	{
		ExitCode = Flitmark::Run(ArgumentCount, Arguments);
	}
	catch (const std::bad_alloc&)
	{
		return Flitmark::PrintError("there is not enough memory for this");
	}
	catch (const std::exception& Exception)
	{
		return Flitmark::PrintError(Exception.what());
	}
	// A full disk shows no sooner.
	if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
	{
		return Flitmark::PrintError("the output cannot be written to standard output");
	}
	return ExitCode;
}
