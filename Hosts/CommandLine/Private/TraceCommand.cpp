#include "TraceCommand.h"

#include "Overlay/CellMeasure.h"
#include "CommentOptions.h"
#include "ExitCodes.h"
#include "Files/FileText.h"
#include "Message.h"
#include "OptionValues.h"
#include "Files/SaveSlots.h"
#include "Overlay/TextMeasure.h"
#include "TraceRunner.h"

#include <CLI/CLI.hpp>

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <unistd.h>

namespace Flitmark
{

namespace
{

/** What the command line said, before it is looked at. */
struct FTraceArguments
{
	std::string Comments;
	FCommentArguments CommentOptions;
	std::string Size = "1920x1080";
	int32 Fps = 60;
	int64 Start = 0;
	std::optional<int64> Frames;
	uint32 Seed = 1;
	std::string Script;
	bool bPositions = false;
	std::string Measure = "cells";
	std::string SaveDir;
};

/** A folder of one's own that goes away with its owner. */
class FTemporaryFolder
{
public:
	FTemporaryFolder()
	{
		std::string Pattern = (std::filesystem::temp_directory_path() / "flitmark-XXXXXX").string();
		Path = ::mkdtemp(Pattern.data()) != nullptr ? Pattern : std::string();
	}
	~FTemporaryFolder()
	{
		std::error_code Ignored;
		std::filesystem::remove_all(Path, Ignored);
	}
	FTemporaryFolder(const FTemporaryFolder&) = delete;
	FTemporaryFolder& operator=(const FTemporaryFolder&) = delete;

	/** Empty where none could be made. */
	std::filesystem::path Path;
};

/** Whether slots can be kept in the folder, which is made where it is not there. */
bool CanKeepSlots(const std::filesystem::path& Folder, std::string& Error)
{
	std::error_code Code;
	std::filesystem::create_directories(Folder, Code);
	if (!std::filesystem::is_directory(Folder) || ::access(Folder.c_str(), R_OK | W_OK | X_OK) != 0)
	{
		Error = "--save-dir: " + Folder.string() + ": no folder that can be written to: choose another";
		return false;
	}
	return true;
}

/** Fills the options from the arguments; false with an error for a file or value that is not understood. */
bool ReadArguments(const FTraceArguments& Arguments, FTraceOptions& Options, std::string& Error)
{
	const std::optional<FVector2f> Size = ParseCanvasSize(Arguments.Size);
	if (!Size)
	{
		Error = "flitmark: --size: \"" + Arguments.Size + "\" is no size: give width and height as in 1920x1080";
		return false;
	}
	Options.Size = *Size;
	Options.Fps = Arguments.Fps;
	Options.Start = Arguments.Start;
	Options.Frames = Arguments.Frames;
	Options.Seed = Arguments.Seed;
	Options.bPositions = Arguments.bPositions;
	if (!Arguments.Comments.empty())
	{
		const std::optional<FCommentSettings> Settings = FCommentSettings::Make(Arguments.CommentOptions, Error);
		std::optional<FCommentsFile> File =
			Settings ? LoadAnyText(Arguments.Comments, Settings->Options, Error) : std::nullopt;
		if (!File)
		{
			Error = "flitmark: " + Error;
			return false;
		}
		PrintNotes(File->MakeNotes());
		Options.Document = std::move(File->Text);
	}
	if (!Arguments.Script.empty())
	{
		const std::optional<std::string> Bytes = LoadBytes(Arguments.Script, Error);
		if (!Bytes)
		{
			Error = "flitmark: " + Error;
			return false;
		}
		std::optional<FTraceScript> Script = FTraceScript::Parse(*Bytes, Arguments.Script, Error);
		if (!Script)
		{
			return false;
		}
		Options.Script = std::move(*Script);
	}
	return true;
}

int RunTrace(const FTraceArguments& Arguments)
{
	FTraceOptions Options;
	std::string Error;
	if (!ReadArguments(Arguments, Options, Error))
	{
		std::cerr << Error << "\n";
		return ExitWrongUse;
	}
	std::unique_ptr<FSlateFontMeasure> Measure = std::make_unique<FCellMeasure>();
	if (Arguments.Measure == "fonts")
	{
		Measure = FTextMeasure::Create({}, Error);
	}
	const FTemporaryFolder Temporary;
	const std::filesystem::path SaveDir =
		Arguments.SaveDir.empty() ? Temporary.Path : std::filesystem::path(Arguments.SaveDir);
	if (!CanKeepSlots(SaveDir, Error))
	{
		std::cerr << "flitmark: " << Error << "\n";
		return ExitWrongUse;
	}
	FSaveSlots Slots(SaveDir);
	ISaveGameSystem::Install(&Slots);
	Options.Measure = Measure.get();
	const bool bRan = Measure != nullptr && FTraceRunner(std::move(Options), stdout).Run(Error);
	ISaveGameSystem::Install(nullptr);
	if (!bRan)
	{
		std::cerr << "flitmark: " << Error << "\n";
		return ExitFailure;
	}
	return ExitSuccess;
}

} // namespace

void AddTraceCommand(CLI::App& App, int& OutExitCode)
{
	const auto Arguments = std::make_shared<FTraceArguments>();
	CLI::App* Command = App.add_subcommand(
		"trace", "Run the overlay without a video or a screen and write what happens, a JSON line an event");
	Command->add_option("COMMENTS", Arguments->Comments,
						"File of comments, in any known format; without it the schedule is empty");
	Command->add_option("--size", Arguments->Size, "Canvas in canvas units, WIDTHxHEIGHT")->capture_default_str();
	Command->add_option("--fps", Arguments->Fps, "Frames per second")
		->check(CLI::Range(1, 1000))
		->capture_default_str();
	Command->add_option("--start", Arguments->Start, "Media time of the first frame, in ticks of 100 ns")
		->check(CLI::NonNegativeNumber);
	Command->add_option("--frames", Arguments->Frames, "How many frames to run (default: until all is over)")
		->check(CLI::NonNegativeNumber);
	Command->add_option("--seed", Arguments->Seed, "Seed of the overlay's two draws")->capture_default_str();
	Command->add_option("--script", Arguments->Script, "What the host and the viewer do, JSON lines");
	Command->add_flag("--positions", Arguments->bPositions, "Also write where each comment stands, every frame");
	Command->add_option("--measure", Arguments->Measure, "How texts are measured")
		->check(CLI::IsMember({"cells", "fonts"}))
		->capture_default_str();
	Command->add_option("--save-dir", Arguments->SaveDir, "Folder of the save slots (default: a temporary one)");
	AddCommentOptions(*Command, Arguments->CommentOptions);
	Command->footer("Example: flitmark trace Samples/demo.json --size 1280x720 --positions > trace.jsonl");
	Command->callback([Arguments, &OutExitCode] { OutExitCode = RunTrace(*Arguments); });
}

} // namespace Flitmark
