#include "Commands.h"

#include "BatchFiles.h"
#include "BatchRun.h"
#include "BurnProgress.h"
#include "ExitCodes.h"
#include "Message.h"
#include "PaintSession.h"
#include "StopSignals.h"
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

struct FBurnArguments
{
	FPaintArguments Paint;
	/** The folder of videos, where there are many. */
	std::string Batch;
	std::string Codec;
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

/** With the summary as the text where it is done. */
FBatchEnd BurnOne(const FBurnArguments& InArguments, const FStopSignals& InSignals)
{
	std::string Error;
	FPaintArguments Paint = InArguments.Paint;
	Paint.BeginTicks = FTimespan::FromSeconds(ParseTime(InArguments.From).value_or(0.0)).GetTicks();
	const std::unique_ptr<FPaintSession> Session = FPaintSession::Open(Paint, Error);
	if (!Session)
	{
		return {EBatchState::Failed, Error};
	}
	FBurnProgress Progress;
	const FVideoResult Result =
		Session->Library().Burn(MakeOptions(InArguments), *Session, Progress, InSignals.GetFlag());
	Progress.Clear();
	if (Result.Outcome == EVideoOutcome::Canceled)
	{
		return {EBatchState::Stopped, InArguments.Paint.Output + " was not written"};
	}
	if (!Result.IsDone())
	{
		return {EBatchState::Failed, Result.Error};
	}
	Session->ReportCuts();
	PrintReport("%s: %s\n", Paint.Output, Progress.Summary());
	PrintReport("%s: %s\n", Paint.Comments, Session->GetReport().Describe());
	return {EBatchState::Done, Progress.Summary()};
}

int RunBurn(const FBurnArguments& InArguments)
{
	const FStopSignals Signals;
	const FBatchEnd End = BurnOne(InArguments, Signals);
	if (End.State == EBatchState::Failed)
	{
		return PrintError(End.Text);
	}
	if (End.State == EBatchState::Stopped)
	{
		PrintNote("stopped; " + End.Text);
		return Signals.GetExitCode();
	}
	return ExitSuccess;
}

FBatchEnd BurnPair(FBurnArguments InArguments, const FBatchPair& InPair, const FStopSignals& InSignals)
{
	if (InPair.Comments.empty())
	{
		return {EBatchState::Skipped, "no comments beside it"};
	}
	if (!InPair.Confusion.empty())
	{
		return {EBatchState::Failed, "several files of comments beside it: " + InPair.Confusion + "; leave one"};
	}
	InArguments.Paint.Video = InPair.Video.string();
	InArguments.Paint.Comments = InPair.Comments.string();
	InArguments.Paint.Output = (std::filesystem::path(InArguments.Paint.Output) / InPair.Video.filename()).string();
	return BurnOne(InArguments, InSignals);
}

int RunBurnBatch(const FBurnArguments& InArguments)
{
	std::string Error;
	const auto Pairs = PairVideos(InArguments.Batch, Error);
	if (!Pairs || !MakeBatchFolder(InArguments.Paint.Output, Error))
	{
		return PrintError(Error);
	}
	if (Pairs->empty())
	{
		return PrintError(InArguments.Batch + ": has no videos");
	}
	std::vector<FBatchJob> Jobs;
	for (const FBatchPair& Pair : *Pairs)
	{
		Jobs.push_back({Pair.Video.filename().string(), [&InArguments, &Pair](const FStopSignals& InSignals)
						{
							return BurnPair(InArguments, Pair, InSignals);
						}});
	}
	return RunBatch(Jobs);
}

/** What the parser cannot know: VIDEO and COMMENTS are needed, or --batch. */
void CheckInputs(const FBurnArguments& InArguments)
{
	const bool bBatch = !InArguments.Batch.empty();
	if (bBatch && !InArguments.Paint.Video.empty())
	{
		throw CLI::ValidationError("--batch", "takes the place of VIDEO and COMMENTS");
	}
	if (!bBatch && (InArguments.Paint.Video.empty() || InArguments.Paint.Comments.empty()))
	{
		throw CLI::RequiredError(InArguments.Paint.Video.empty() ? "VIDEO" : "COMMENTS");
	}
}

constexpr const char* Footer =
	R"(Audio and subtitles are copied. Times are in seconds or [hh:]mm:ss[.fff].
OUT appears only once it is complete; until then an existing file of that name stays as it is.
With --batch, every video of a folder is burned with the comments beside it ("film.xml" for "film.mkv") into a video of the
same name in the folder OUT. It goes on after a failure and ends with a table.

Examples:
  flitmark burn film.mp4 comments.json -o out.mp4
  flitmark burn film.mkv comments.json -o out.mkv --from 10:00 --to 12:30 --crf 18 --preset fast
  flitmark burn film.mp4 comments.json -o out.mp4 --codec libx265 --font "Noto Sans:bold" --opacity 0.8
  flitmark burn --batch films -o burned --preset fast)";

} // namespace

void AddBurnCommand(CLI::App& InApp, int& OutExitCode)
{
	const auto Arguments = std::make_shared<FBurnArguments>();
	CLI::App* const Command = InApp.add_subcommand("burn", "Burn comments into a new video");
	AddPaintArguments(*Command, Arguments->Paint);
	Command->get_option("VIDEO")->required(false);
	Command->get_option("COMMENTS")->required(false);
	Command->add_option("--batch", Arguments->Batch, "Burn all videos of this folder; OUT is a folder then")
		->type_name("FOLDER");
	const CLI::Validator Time = MakeCheck(&ParseTime, "is not a time; try 90, 1:30 or 0:01:30.5");
	Command->add_option("-o,--output", Arguments->Paint.Output, "The new video; its extension picks the container")
		->type_name("OUT")
		->required();
	Command->add_option(
		"--codec", Arguments->Codec,
		"Video encoder, as FFmpeg names it (default: VP9 for .webm, H.264 for the others; one that keeps "
		"transparency where the video has it)");
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
			CheckInputs(*Arguments);
			OutExitCode = Arguments->Batch.empty() ? RunBurn(*Arguments) : RunBurnBatch(*Arguments);
		});
}

} // namespace Flitmark
