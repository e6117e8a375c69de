#include "ShotCommand.h"

#include "ExitCodes.h"
#include "Message.h"
#include "OptionChecks.h"
#include "OptionValues.h"
#include "PaintSession.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <filesystem>
#include <memory>

namespace Flitmark
{

namespace
{

struct FShotArguments
{
	FPaintArguments Paint;
	std::string At;
};

int RunShot(const FShotArguments& InArguments)
{
	std::string Error;
	const std::unique_ptr<FPaintSession> Session = FPaintSession::Open(InArguments.Paint, Error);
	if (!Session)
	{
		return PrintError(Error);
	}
	FShotOptions Options;
	Options.Input = InArguments.Paint.Video;
	Options.Output = InArguments.Paint.Output;
	Options.At = *ParseTime(InArguments.At);
	Options.Threads = InArguments.Paint.Threads;
	const FVideoResult Result = Session->Library().Shot(Options, *Session);
	if (!Result.IsDone())
	{
		return PrintError(Result.Error);
	}
	Session->ReportCuts();
	std::printf("%s: the frame at %s\n", Options.Output.c_str(), InArguments.At.c_str());
	return ExitSuccess;
}

bool IsPictureName(const std::string& InName)
{
	const std::string Ending = std::filesystem::path(InName).extension().string();
	return Ending == ".png" || Ending == ".PNG";
}

constexpr const char* Footer =
	R"(TIME is given in seconds or as [hh:]mm:ss[.fff]. The picture is the frame that "flitmark burn" would paint at that
time with the same options. An earlier file of its name is replaced when it is whole.

Examples:
  flitmark shot film.mp4 comments.json --at 83 -o picture.png
  flitmark shot film.mp4 comments.json --at 1:23.5 -o picture.png --font "Noto Serif" --scale 2)";

} // namespace

void AddShotCommand(CLI::App& App, int& OutExitCode)
{
	const auto Arguments = std::make_shared<FShotArguments>();
	CLI::App* const Command = App.add_subcommand("shot", "Make a picture of one frame with its comments");
	AddPaintOptions(*Command, Arguments->Paint);
	Command->add_option("-o,--output", Arguments->Paint.Output, "The picture to make, *.png")
		->type_name("PICTURE")
		->required()
		->check(CLI::Validator(
			[](const std::string& InName) {
				return IsPictureName(InName) ? std::string()
											 : "\"" + InName + "\" must end in .png: only PNG is written";
			},
			""));
	Command->add_option("--at", Arguments->At, "Time of the frame")
		->type_name("TIME")
		->required()
		->check(MakeCheck(&ParseTime, "is no time such as 90, 1:30 or 0:01:30.5"));
	Command->footer(Footer);
	Command->callback([Arguments, &OutExitCode] { OutExitCode = RunShot(*Arguments); });
}

} // namespace Flitmark
