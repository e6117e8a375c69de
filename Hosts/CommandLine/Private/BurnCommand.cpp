#include "Commands.h"

#include "BurnProgress.h"
#include "ExitCodes.h"
#include "Message.h"
#include "PaintSession.h"
#include "StopSignals.h"
#include "Values/OptionChecks.h"
#include "Values/TimeText.h"

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
	Options.bAllowPlaylists = InArguments.Paint.bAllowPlaylists;
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
	PrintReport("%s: %s\n", InArguments.Paint.Output, Progress.Summary());
	return ExitSuccess;
}

constexpr const char* Footer =
	R"(Audio and subtitles are copied. Times are in seconds or [hh:]mm:ss[.fff].
OUT appears only once it is complete; until then an existing file of that name stays as it is.

Examples:
  flitmark burn film.mp4 comments.json -o out.mp4
  flitmark burn film.mkv comments.json -o out.mkv --from 10:00 --to 12:30 --crf 18 --preset fast
  flitmark burn film.mp4 comments.json -o out.mp4 --codec libx265 --font "Noto Sans:bold" --opacity 0.8)";

} // namespace

void AddBurnCommand(CLI::App& InApp, int& OutExitCode)
{
	const auto Arguments = std::make_shared<FBurnArguments>();
	CLI::App* const Command = InApp.add_subcommand("burn", "Burn comments into a new video");
	AddPaintArguments(*Command, Arguments->Paint);
	const CLI::Validator Time = MakeCheck(&ParseTime, "is not a time; try 90, 1:30 or 0:01:30.5");
	Command->add_option("-o,--output", Arguments->Paint.Output, "The new video; its extension picks the container")
		->type_name("OUT")
		->required();
	Command->add_option("--codec", Arguments->Codec, "Video encoder, as FFmpeg names it")->capture_default_str();
	Command
		->add_option("--crf", Arguments->Crf,
					 "Encoder quality; lower is better and larger (default: the encoder's own)")
		->check(MakeNumberCheck(0.0));
	Command->add_option("--preset", Arguments->Preset,
						"Encoder preset, such as ultrafast (default: the encoder's own)");
	Command->add_option("--from", Arguments->From, "Start at this time")->check(Time)->type_name("TIME");
	Command->add_option("--to", Arguments->To, "Stop at this time")->check(Time)->type_name("TIME");
	AddPaintOptions(*Command, Arguments->Paint);
	Command->footer(Footer);
	Command->callback(
		[Arguments, &OutExitCode]
		{
			const std::optional<double> To = ParseTime(Arguments->To);
			if (To && *To <= ParseTime(Arguments->From).value_or(0.0))
			{
				throw CLI::ValidationError("--to", "must be after --from");
			}
			OutExitCode = RunBurn(*Arguments);
		});
}

} // namespace Flitmark
