#include "Commands.h"

#include "Overlay/CellMeasure.h"
#include "CommentOptions.h"
#include "ExitCodes.h"
#include "Files/FileText.h"
#include "Files/MemorySlots.h"
#include "Message.h"
#include "OptionValues.h"
#include "OverlayOptions.h"
#include "Files/SaveSlots.h"
#include "TraceRunner.h"
#include "Values/OptionChecks.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <filesystem>
#include <memory>
#include <unistd.h>

namespace Flitmark
{

namespace
{

struct FTraceArguments
{
	std::string Comments;
	FCommentArguments CommentOptions;
	std::string Size = "1920x1080";
	std::string Script;
	std::string Measure = "cells";
	FOverlayArguments Overlay;
	std::string SaveDir;
	/** What the command line sets directly. */
	FTraceOptions Options;
};

/** Creates the folder where it is missing; false with OutError set where no slots can be kept in it. */
bool CanKeepSlots(const std::filesystem::path& InFolder, std::string& OutError)
{
	std::error_code Ignored;
	std::filesystem::create_directories(InFolder, Ignored);
	if (!std::filesystem::is_directory(InFolder, Ignored) || ::access(InFolder.c_str(), R_OK | W_OK | X_OK) != 0)
	{
		OutError = "--save-dir: " + InFolder.string() + ": is not a writable folder; choose another";
		return false;
	}
	return true;
}

bool LoadDocument(const FTraceArguments& InArguments, FTraceOptions& OutOptions, std::string& OutError)
{
	const std::optional<FCommentSettings> Settings = FCommentSettings::Make(InArguments.CommentOptions, OutError);
	std::optional<FCommentsFile> File =
		Settings ? LoadAnyText(InArguments.Comments, Settings->Options, OutError) : std::nullopt;
	if (!File)
	{
		return false;
	}
	PrintNotes(File->MakeNotes());
	OutOptions.Document = std::move(File->Text);
	return true;
}

bool LoadScript(const std::string& InFile, FTraceScript& OutScript, std::string& OutError)
{
	const std::optional<std::string> Bytes = LoadBytes(InFile, OutError);
	std::optional<FTraceScript> Script = Bytes ? FTraceScript::Parse(*Bytes, InFile, OutError) : std::nullopt;
	if (Script)
	{
		OutScript = std::move(*Script);
	}
	return Script.has_value();
}

/** A file that is not understood counts as wrong usage. */
int RunTrace(const FTraceArguments& InArguments)
{
	FTraceOptions Options = InArguments.Options;
	Options.Settings = InArguments.Overlay.Settings;
	Options.Size = *ParseCanvasSize(InArguments.Size);
	std::string Error;
	if ((!InArguments.Comments.empty() && !LoadDocument(InArguments, Options, Error)) ||
		(!InArguments.SaveDir.empty() && !CanKeepSlots(InArguments.SaveDir, Error)))
	{
		PrintNote(Error);
		return ExitWrongUse;
	}
	if (!InArguments.Script.empty() && !LoadScript(InArguments.Script, Options.Script, Error))
	{
		// In the form of a compiler's message, which editors find the line by.
		PrintPlainError(Error);
		return ExitWrongUse;
	}
	std::unique_ptr<FSlateFontMeasure> Measure = std::make_unique<FCellMeasure>();
	if (InArguments.Measure == "fonts")
	{
		Measure = MakeMeasure(Options.Settings.Text, Error);
	}
	if (!Measure)
	{
		return PrintError(Error);
	}
	FMemorySlots PassingSlots;
	FSaveSlots KeptSlots(InArguments.SaveDir);
	ISaveGameSystem::Install(InArguments.SaveDir.empty() ? static_cast<ISaveGameSystem*>(&PassingSlots) : &KeptSlots);
	Options.Measure = Measure.get();
	const bool bRan = FTraceRunner(std::move(Options), stdout).Run(Error);
	ISaveGameSystem::Install(nullptr);
	return bRan ? ExitSuccess : PrintError(Error);
}

} // namespace

void AddTraceCommand(CLI::App& InApp, int& OutExitCode)
{
	const auto Arguments = std::make_shared<FTraceArguments>();
	CLI::App* Command =
		InApp.add_subcommand("trace", "Run the overlay without a video or a screen and log what happens as JSON lines");
	Command->add_option("COMMENTS", Arguments->Comments,
						"Comment file, in any known format; without it nothing is scheduled");
	Command->add_option("--size", Arguments->Size, "Canvas size in canvas units")
		->type_name("WIDTHxHEIGHT")
		->check(MakeCheck(&ParseCanvasSize, "is not a size; try 1920x1080"))
		->capture_default_str();
	Command->add_option("--fps", Arguments->Options.Fps, "Frames per second")
		->check(MakeNumberCheck(1, 1000))
		->capture_default_str();
	Command->add_option("--start", Arguments->Options.Start, "Media time of the first frame, in 100-ns ticks")
		->check(MakeNumberCheck(0));
	Command->add_option("--frames", Arguments->Options.Frames, "Number of frames (default: until everything is over)")
		->check(MakeNumberCheck(0));
	Command->add_option("--seed", Arguments->Options.Seed, "Seed for the overlay's random numbers")
		->capture_default_str();
	Command->add_option("--script", Arguments->Script, "What the host and the viewer do, a file of JSON lines");
	Command->add_flag("--positions", Arguments->Options.bPositions, "Also log every comment's position in every frame");
	Command->add_option("--measure", Arguments->Measure, "How text is measured")
		->check(CLI::IsMember({"cells", "fonts"}))
		->capture_default_str();
	Command->add_option("--save-dir", Arguments->SaveDir,
						"Folder for the save slots (default: kept in memory, for this run only)");
	AddOverlayOptions(*Command, Arguments->Overlay, {.bScale = false, .bPicture = false});
	AddCommentOptions(*Command, Arguments->CommentOptions);
	Command->footer("Example: flitmark trace Samples/demo.json --size 1280x720 --positions > trace.jsonl");
	Command->callback([Arguments, &OutExitCode] { OutExitCode = RunTrace(*Arguments); });
}

} // namespace Flitmark
