#include "BurnCommand.h"

#include "BurnProgress.h"
#include "ExitCodes.h"
#include "Message.h"
#include "OptionChecks.h"
#include "OptionValues.h"
#include "PaintSession.h"
#include "StopSignals.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>

namespace Flitmark
{

namespace
{

struct FBurnArguments
{
	FPaintArguments Paint;
	std::string Codec = "libx264";
	std::optional<double> Crf;
	std::string Preset;
	std::string From;
	std::string To;
};

FBurnOptions MakeOptions(const FBurnArguments& InArguments)
{
	FBurnOptions Options;
	Options.Input = InArguments.Paint.Video;
	Options.Output = InArguments.Paint.Output;
	Options.Codec = InArguments.Codec;
	Options.Crf = InArguments.Crf;
	Options.Preset = InArguments.Preset;
	Options.Threads = InArguments.Paint.Threads;
	Options.From = ParseTime(InArguments.From);
	Options.To = ParseTime(InArguments.To);
	return Options;
}

int RunBurn(const FBurnArguments& InArguments)
{
	std::string Error;
	const std::unique_ptr<FPaintSession> Session = FPaintSession::Open(InArguments.Paint, Error);
	if (!Session)
	{
		return PrintError(Error);
	}
	const FStopSignals Signals;
	FBurnProgress Progress;
	const FVideoResult Result =
		Session->Library().Burn(MakeOptions(InArguments), *Session, Progress, Signals.GetFlag());
	Progress.Clear();
	switch (Result.Outcome)
	{
	case EVideoOutcome::Failed:
		return PrintError(Result.Error);
	case EVideoOutcome::Cancelled:
		PrintNote("stopped; " + InArguments.Paint.Output + " was not written");
		return Signals.GetExitCode();
	case EVideoOutcome::Done:
		break;
	}
	Session->ReportCuts();
	std::printf("%s: %s\n", InArguments.Paint.Output.c_str(), Progress.Summary().c_str());
	return ExitSuccess;
}

constexpr const char* Footer =
	R"(Sound and subtitles are copied. Times are given in seconds or as [hh:]mm:ss[.fff].
OUT appears under its name only when it is whole; an earlier file of that name is replaced then.

Examples:
  flitmark burn film.mp4 comments.json -o out.mp4
  flitmark burn film.mkv comments.json -o out.mkv --from 10:00 --to 12:30 --crf 18 --preset fast
  flitmark burn film.mp4 comments.json -o out.mp4 --codec libx265 --font "Noto Sans:bold" --opacity 0.8)";

} // namespace

void AddBurnCommand(CLI::App& App, int& OutExitCode)
{
	const auto Arguments = std::make_shared<FBurnArguments>();
	CLI::App* const Command = App.add_subcommand("burn", "Make a video with the comments painted into it");
	AddPaintOptions(*Command, Arguments->Paint);
	const CLI::Validator Time = MakeCheck(&ParseTime, "is no time such as 90, 1:30 or 0:01:30.5");
	Command->add_option("-o,--output", Arguments->Paint.Output, "The video to make; its ending names the container")
		->type_name("OUT")
		->required();
	Command->add_option("--codec", Arguments->Codec, "Encoder, by FFmpeg's name")->capture_default_str();
	Command->add_option("--crf", Arguments->Crf, "The encoder's quality: less is better and larger (default: its own)")
		->check(CLI::NonNegativeNumber);
	Command->add_option("--preset", Arguments->Preset, "The encoder's preset, such as ultrafast (default: its own)");
	Command->add_option("--from", Arguments->From, "Time to begin at")->check(Time)->type_name("TIME");
	Command->add_option("--to", Arguments->To, "Time to end at")->check(Time)->type_name("TIME");
	Command->footer(Footer);
	Command->callback(
		[Arguments, &OutExitCode]
		{
			const std::optional<double> To = ParseTime(Arguments->To);
			if (To && *To <= ParseTime(Arguments->From).value_or(0.0))
			{
				throw CLI::ValidationError("--to", "must be behind the time to begin at");
			}
			OutExitCode = RunBurn(*Arguments);
		});
}

} // namespace Flitmark
