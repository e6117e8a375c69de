#include "Commands.h"

#include "ExitCodes.h"
#include "Message.h"
#include "PaintSession.h"
#include "Values/OptionChecks.h"
#include "Values/TimeText.h"

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
	FPaintArguments Paint = InArguments.Paint;
	Paint.BeginTicks = MAX_int64;
	const std::unique_ptr<FPaintSession> Session = FPaintSession::Open(Paint, Error);
	if (!Session)
	{
		return PrintError(Error);
	}
	FShotOptions Options;
	Options.Input = InArguments.Paint.Video;
	Options.bAllowPlaylists = InArguments.Paint.bAllowPlaylists;
	Options.Output = InArguments.Paint.Output;
	Options.At = *ParseTime(InArguments.At);
	Options.Threads = InArguments.Paint.Threads;
	const FVideoResult Result = Session->Library().Shot(Options, *Session);
	if (!Result.IsDone())
	{
		return PrintError(Result.Error);
	}
	Session->ReportCuts();
	PrintReport("%s: the frame at %s\n", Options.Output, InArguments.At);
	PrintReport("%s: %s\n", InArguments.Paint.Comments, Session->GetReport().Describe());
	return ExitSuccess;
}

bool IsPictureName(const std::string& InName)
{
	const std::string Ending = std::filesystem::path(InName).extension().string();
	return Ending == ".png" || Ending == ".PNG";
}

constexpr const char* Footer =
	R"(TIME is in seconds or [hh:]mm:ss[.fff]. The picture is the frame that "flitmark burn" would paint at that time with
the same options. An existing picture is replaced only once the new one is complete.

Examples:
  flitmark shot film.mp4 comments.json --at 83 -o picture.png
  flitmark shot film.mp4 comments.json --at 1:23.5 -o picture.png --font "Noto Serif" --scale 2)";

} // namespace

void AddShotCommand(CLI::App& InApp, int& OutExitCode)
{
	const auto Arguments = std::make_shared<FShotArguments>();
	CLI::App* const Command = InApp.add_subcommand("shot", "Save one frame with its comments as a picture");
	AddPaintArguments(*Command, Arguments->Paint);
	Command->add_option("-o,--output", Arguments->Paint.Output, "The picture, *.png")
		->type_name("PICTURE")
		->required()
		->check(CLI::Validator(
			[](const std::string& InName) {
				return IsPictureName(InName) ? std::string()
											 : "\"" + InName + "\" must end in .png; only PNG is supported";
			},
			""));
	Command->add_option("--at", Arguments->At, "Time of the frame")
		->type_name("TIME")
		->required()
		->check(MakeCheck(&ParseTime, "is not a time; try 90, 1:30 or 0:01:30.5"));
	AddPaintOptions(*Command, Arguments->Paint);
	Command->footer(Footer);
	Command->callback([Arguments, &OutExitCode] { OutExitCode = RunShot(*Arguments); });
}

} // namespace Flitmark
