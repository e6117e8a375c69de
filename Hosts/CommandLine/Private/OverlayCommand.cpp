#include "Commands.h"

#include "BurnProgress.h"
#include "ExitCodes.h"
#include "Message.h"
#include "OptionValues.h"
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

struct FDrawingArguments
{
	FPaintArguments Paint;
	std::string Size = "1920x1080";
	std::string Rate = "60";
	std::string Codec;
	std::optional<double> Crf;
	std::string Preset;
	std::string From;
	std::string To;
};

FOverlayVideoOptions MakeOptions(const FDrawingArguments& InArguments)
{
	FOverlayVideoOptions Options;
	Options.Output = InArguments.Paint.Output;
	Options.Codec = InArguments.Codec;
	Options.Crf = InArguments.Crf;
	Options.Preset = InArguments.Preset;
	Options.Threads = InArguments.Paint.Threads;
	Options.Like = InArguments.Paint.Video;
	Options.bAllowPlaylists = InArguments.Paint.bAllowPlaylists;
	std::tie(Options.Width, Options.Height) = *ParsePictureSize(InArguments.Size);
	std::tie(Options.RateNumerator, Options.RateDenominator) = *ParseFrameRate(InArguments.Rate);
	Options.From = ParseTime(InArguments.From);
	Options.To = ParseTime(InArguments.To);
	return Options;
}

int RunOverlay(FDrawingArguments& InOutArguments)
{
	const FOverlayVideoOptions Options = MakeOptions(InOutArguments);
	if (Options.Like.empty())
	{
		InOutArguments.Paint.Shape = {Options.Width, Options.Height};
	}
	InOutArguments.Paint.BeginTicks = FTimespan::FromSeconds(Options.From.value_or(0.0)).GetTicks();
	std::string Error;
	const std::unique_ptr<FPaintSession> Session = FPaintSession::Open(InOutArguments.Paint, Error);
	if (!Session)
	{
		return PrintError(Error);
	}
	const FStopSignals Signals;
	FBurnProgress Progress;
	const FVideoResult Result = Session->Library().DrawOverlay(Options, *Session, Progress, Signals.GetFlag());
	Progress.Clear();
	switch (Result.Outcome)
	{
	case EVideoOutcome::Failed:
		return PrintError(Result.Error);
	case EVideoOutcome::Canceled:
		PrintNote("stopped; " + Options.Output + " was not finished");
		return Signals.GetExitCode();
	case EVideoOutcome::Done:
		break;
	}
	Session->ReportCuts();
	PrintReport("%s: %s\n", Options.Output, Progress.Summary());
	PrintReport("%s: %s\n", InOutArguments.Paint.Comments, Session->GetReport().Describe());
	return ExitSuccess;
}

constexpr const char* Footer =
	R"(The comments alone, on transparency, to lay over a video in a video editor. The ending of OUT says what it is:
  .mov            ProRes 4444, or lossless with --codec qtrle
  .webm           VP9 with alpha
  out-%05d.png    a picture a frame, numbered from 1
Alpha is straight (not premultiplied). Without --to, OUT ends with the VIDEO of --like, or when the last comment is gone.
Times are in seconds or [hh:]mm:ss[.fff].

Examples:
  flitmark overlay comments.json -o comments.mov --like film.mp4
  flitmark overlay comments.json -o comments.webm --size 1280x720 --fps 30000/1001
  flitmark overlay comments.json -o frames/out-%05d.png --fps 25 --from 1:00 --to 1:30)";

} // namespace

void AddOverlayCommand(CLI::App& InApp, int& OutExitCode)
{
	const auto Arguments = std::make_shared<FDrawingArguments>();
	CLI::App* const Command = InApp.add_subcommand("overlay", "Draw the comments alone, for video editors");
	const CLI::Validator Time = MakeCheck(&ParseTime, "is not a time; try 90, 1:30 or 0:01:30.5");
	AddPaintArguments(*Command, Arguments->Paint, false);
	Command->add_option("-o,--output", Arguments->Paint.Output, "The new video, or pictures: .mov, .webm, or %05d.png")
		->type_name("OUT")
		->required();
	CLI::Option* const Size = Command->add_option("--size", Arguments->Size, "Size of the picture, in pixels")
								  ->type_name("WIDTHxHEIGHT")
								  ->check(MakeCheck(&ParsePictureSize, "is not a size in pixels; try 1920x1080"))
								  ->capture_default_str();
	CLI::Option* const Rate =
		Command->add_option("--fps", Arguments->Rate, "Frames per second, also as a fraction such as 30000/1001")
			->type_name("RATE")
			->check(MakeCheck(&ParseFrameRate, "is not a frame rate; try 60, 29.97 or 30000/1001"))
			->capture_default_str();
	Command->add_option("--like", Arguments->Paint.Video, "Take size, frame times, and length from this video")
		->type_name("VIDEO")
		->excludes(Size)
		->excludes(Rate);
	Command->add_option("--codec", Arguments->Codec,
						"Video encoder with alpha, as FFmpeg names it (default: the container's usual one)");
	Command->add_option("--crf", Arguments->Crf, "Encoder quality; lower is better and larger (default: its own)")
		->check(MakeNumberCheck(0.0));
	Command->add_option("--preset", Arguments->Preset, "Encoder preset (default: its own)");
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
			OutExitCode = RunOverlay(*Arguments);
		});
}

} // namespace Flitmark
