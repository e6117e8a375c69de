#include "Commands.h"

#include "Activity.h"
#include "Formats/CommentChange.h"
#include "Formats/CommentDocumentWriter.h"
#include "BatchFiles.h"
#include "BatchRun.h"
#include "Formats/CommentListWriter.h"
#include "Formats/CommentOrigin.h"
#include "CommentOptions.h"
#include "ConvertForm.h"
#include "Filtering/CommentOrder.h"
#include "Filtering/CommentRepeats.h"
#include "Formats/CommentTraits.h"
#include "ExitCodes.h"
#include "Message.h"
#include "OptionValues.h"
#include "SubtitleOutput.h"
#include "Files/TemporaryFile.h"
#include "Values/OptionChecks.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <iterator>
#include <map>
#include <memory>

namespace Flitmark
{

namespace
{

constexpr std::string_view StandardOutput = "-";

struct FConvertArguments
{
	std::vector<std::string> Inputs;
	std::string Output;
	/** The folder of files, where there are many; an offset is for each of them then. */
	std::string Batch;
	/** What --to says. */
	std::string FormName;
	EConvertForm Form = EConvertForm::Json;
	/** The n-th belongs to the n-th input. */
	std::vector<std::string> Offsets;
	FCommentArguments CommentOptions;
	FSubtitleArguments Subtitles;

	int64 GetOffset(std::size_t InInput) const { return InInput < Offsets.size() ? *ParseOffset(Offsets[InInput]) : 0; }
};

/** Shifts all comments of a file; those that end up outside the media time are dropped. */
void Move(std::vector<FServiceComment>& InOutComments, int64 InOffset, const std::string& InPath)
{
	int64 NumEarly = 0;
	int64 NumBefore = 0;
	int64 NumLate = 0;
	for (FServiceComment& Comment : InOutComments)
	{
		SetSpawnTicks(Comment, Comment.SpawnTicks + InOffset);
		if (!IsReached(Comment))
		{
			++(Comment.SpawnTicks < 0 ? NumBefore : NumLate);
		}
		else if (Comment.SpawnTicks < 0)
		{
			++NumEarly;
		}
	}
	std::erase_if(InOutComments, [](const FServiceComment& InComment) { return !IsReached(InComment); });
	const auto Report = [&InPath](int64 InCount, const char* InWhere)
	{
		if (InCount > 0)
		{
			PrintNote(InPath + ": --offset shifts " + CountComments(InCount) + " " + InWhere);
		}
	};
	Report(NumEarly, "to less than a second before 0 s; shown at the start");
	Report(NumBefore, "before 0 s, where nothing is shown; dropped");
	Report(NumLate, "to 24 h or later, where nothing is shown; dropped");
}

/** Makes an input's comments ready, and prints what there is to report about them. */
bool Gather(FCommentsInput& InOutInput, int64 InOffset, std::string& OutError)
{
	if (InOutInput.Bytes && !InOutInput.ImportOwn(OutError))
	{
		return false;
	}
	PrintNote(DescribeImport(InOutInput.Report));
	PrintNotes(DescribeLosses(InOutInput.Report));
	if (InOffset != 0)
	{
		Move(InOutInput.Comments, InOffset, InOutInput.Report.Path);
	}
	return true;
}

/** Everything is read before anything is written. */
std::optional<std::vector<FCommentsInput>> ReadInputs(const FConvertArguments& InArguments, const FKindPolicy& InKinds,
													  std::string& OutError)
{
	std::vector<FCommentsInput> Inputs;
	for (const std::string& Path : InArguments.Inputs)
	{
		if (InArguments.Output != StandardOutput)
		{
			OutError = OutputObstacle(Path, InArguments.Output);
		}
		std::optional<FCommentsInput> Input =
			OutError.empty() ? FCommentsInput::Read(Path, InKinds, OutError) : std::nullopt;
		if (!Input)
		{
			return std::nullopt;
		}
		Inputs.push_back(std::move(*Input));
	}
	return Inputs;
}

using FWriteText = std::function<bool(const FTextOutput&)>;

bool WriteOutput(const std::string& InPath, const FWriteText& InWrite, std::string& OutError)
{
	if (InPath == StandardOutput)
	{
		// A failure is reported when the program ends, as for every command.
		InWrite([](std::string_view InPiece)
				{ return std::fwrite(InPiece.data(), 1, InPiece.size(), stdout) == InPiece.size(); });
		return true;
	}
	const std::unique_ptr<FTemporaryFile> File = FTemporaryFile::Create(InPath, OutError);
	return File && InWrite([&](std::string_view InPiece) { return File->Write(InPiece, OutError); }) &&
		   File->Commit(OutError);
}

/** A document of ours that nothing is to change keeps its bytes. */
bool CopyDocument(const FConvertArguments& InArguments, FCommentsInput& InOutInput, std::string& OutError)
{
	if (!InOutInput.ReadDocument(OutError))
	{
		return false;
	}
	PrintNote(InOutInput.Report.Path + ": is already a comment document; copied unchanged");
	return WriteOutput(
		InArguments.Output, [&](const FTextOutput& InOutput) { return InOutput(*InOutInput.Bytes); }, OutError);
}

/** Adds an input's comments to those of earlier ones, except what these have already. */
void AddFurther(FCommentsInput& InOutInput, std::vector<FServiceComment>& InOutComments)
{
	const std::size_t NumEarlier = InOutComments.size();
	InOutComments.insert(InOutComments.end(), std::make_move_iterator(InOutInput.Comments.begin()),
						 std::make_move_iterator(InOutInput.Comments.end()));
	if (const int64 NumKnown = DropKnown(InOutComments, NumEarlier); NumKnown > 0)
	{
		PrintNote(InOutInput.Report.Path + ": " + CountComments(NumKnown) + (NumKnown == 1 ? " is" : " are") +
				  " in an earlier file already, with the same ID, time, and text; left out");
	}
}

/** All inputs' comments in one list, ordered by time; an input's memory is freed as it is taken. */
bool JoinInputs(const FConvertArguments& InArguments, std::vector<FCommentsInput> InInputs,
				std::vector<FServiceComment>& OutComments, std::string& OutError)
{
	const bool bSeveral = InInputs.size() > 1;
	for (std::size_t Index = 0; Index < InInputs.size(); ++Index)
	{
		std::vector<FServiceComment>& More = InInputs[Index].Comments;
		if (!Gather(InInputs[Index], InArguments.GetOffset(Index), OutError))
		{
			return false;
		}
		if (bSeveral || InArguments.Form == EConvertForm::Xml)
		{
			std::ranges::for_each(More, &ReadOrigin);
		}
		if (OutComments.empty())
		{
			OutComments = std::move(More);
		}
		else
		{
			AddFurther(InInputs[Index], OutComments);
		}
		InInputs[Index] = {};
	}
	if (bSeveral)
	{
		OrderByTime(OutComments);
	}
	return true;
}

/** What is to be written, and how many comments it has. */
struct FConverted
{
	FWriteText Write;
	int64 NumComments = 0;
};

/** InComments lives as long as what comes of it. */
std::optional<FConverted> MakeOutput(const FConvertArguments& InArguments, std::vector<FServiceComment>& InOutComments,
									 std::string& OutError)
{
	if (InArguments.Form == EConvertForm::Ass)
	{
		const std::shared_ptr<FSubtitleOutput> Output =
			FSubtitleOutput::Make(std::move(InOutComments), InArguments.Subtitles, OutError);
		return Output
				   ? std::optional(FConverted{[Output](const FTextOutput& InOutput) { return Output->Write(InOutput); },
											  Output->CountComments()})
				   : std::nullopt;
	}
	const auto NumAll = static_cast<int64>(InOutComments.size());
	if (InArguments.Form == EConvertForm::Json)
	{
		return FConverted{[&InOutComments](const FTextOutput& InOutput)
						  { return WriteCommentDocument(InOutComments, InOutput); },
						  NumAll};
	}
	const int64 NumListed = std::ranges::count_if(InOutComments, &CanBeListed);
	if (NumListed < NumAll)
	{
		PrintNote(CountComments(NumAll - NumListed) +
				  " that the overlay does not show, because of mode, size, or color, can't be part of an XML list");
	}
	return FConverted{
		[&InOutComments](const FTextOutput& InOutput) { return WriteCommentList(InOutComments, InOutput); }, NumListed};
}

bool WriteComments(const FConvertArguments& InArguments, std::vector<FCommentsInput> InInputs,
				   const FCommentFilter* InFilter, std::string& OutError)
{
	std::vector<FServiceComment> Comments;
	if (!JoinInputs(InArguments, std::move(InInputs), Comments, OutError))
	{
		return false;
	}
	for (const FFilterRule& Rule : InFilter != nullptr ? InFilter->Apply(Comments) : std::vector<FFilterRule>())
	{
		PrintNote(DescribeRule(Rule));
	}
	const std::optional<FConverted> Converted = MakeOutput(InArguments, Comments, OutError);
	if (!Converted || !WriteOutput(InArguments.Output, Converted->Write, OutError))
	{
		return false;
	}
	const std::string Name = InArguments.Output == StandardOutput ? "standard output" : InArguments.Output;
	PrintNote(Name + ": " + CountComments(Converted->NumComments) + " written");
	return true;
}

FBatchEnd ConvertFiles(const FConvertArguments& InArguments)
{
	std::string Error;
	const FActivity Activity("converting");
	const std::optional<FCommentSettings> Settings = FCommentSettings::Make(InArguments.CommentOptions, Error);
	std::optional<std::vector<FCommentsInput>> Inputs =
		Settings ? ReadInputs(InArguments, Settings->Options.Kinds, Error) : std::nullopt;
	if (!Inputs)
	{
		return {EBatchState::Failed, Error};
	}
	const bool bUnchanged = InArguments.Form == EConvertForm::Json && Inputs->size() == 1 && Inputs->front().Bytes &&
							!Settings->Filter && InArguments.GetOffset(0) == 0;
	const bool bDone = bUnchanged ? CopyDocument(InArguments, Inputs->front(), Error)
								  : WriteComments(InArguments, std::move(*Inputs), Settings->Filter.get(), Error);
	return {bDone ? EBatchState::Done : EBatchState::Failed, Error};
}

int RunConvert(const FConvertArguments& InArguments)
{
	const FBatchEnd End = ConvertFiles(InArguments);
	return End.State == EBatchState::Done ? ExitSuccess : PrintError(End.Text);
}

/** A job for each file; those that would get the same name fail, but the first. */
std::vector<FBatchJob> MakeJobs(const FConvertArguments& InArguments, const std::vector<std::filesystem::path>& InFiles)
{
	const std::filesystem::path Folder = InArguments.Output;
	std::vector<FBatchJob> Jobs;
	std::map<std::string, std::string> Makers;
	for (const std::filesystem::path& File : InFiles)
	{
		const std::string Name = File.filename().string();
		const std::string Output =
			File.stem().string() + "." + (InArguments.FormName.empty() ? "json" : InArguments.FormName);
		const std::string Maker = Makers.emplace(Output, Name).first->second;
		Jobs.push_back({Name, [=, &InArguments](const FStopSignals&)
						{
							if (Maker != Name)
							{
								return FBatchEnd{EBatchState::Failed, Output + " is made from " + Maker + " already"};
							}
							FConvertArguments Arguments = InArguments;
							Arguments.Inputs = {File.string()};
							Arguments.Output = (Folder / Output).string();
							FBatchEnd End = ConvertFiles(Arguments);
							End.Text = End.State == EBatchState::Done ? Arguments.Output : End.Text;
							return End;
						}});
	}
	return Jobs;
}

int RunConvertBatch(const FConvertArguments& InArguments)
{
	std::string Error;
	const auto Files = ListComments(InArguments.Batch, Error);
	if (!Files || !MakeBatchFolder(InArguments.Output, Error))
	{
		return PrintError(Error);
	}
	return Files->empty() ? PrintError(InArguments.Batch + ": has no files of comments")
						  : RunBatch(MakeJobs(InArguments, *Files));
}

/** What the parser cannot know: files are needed, or --batch. */
void CheckInputs(const FConvertArguments& InArguments)
{
	if (!InArguments.Batch.empty() && !InArguments.Inputs.empty())
	{
		throw CLI::ValidationError("--batch", "takes the place of IN");
	}
	if (InArguments.Batch.empty() && InArguments.Inputs.empty())
	{
		throw CLI::RequiredError("IN");
	}
}

/** Settles the form, and refuses what does not go together. */
void CheckArguments(FConvertArguments& InOutArguments)
{
	const std::size_t NumInputs = std::max<std::size_t>(1, InOutArguments.Inputs.size());
	if (InOutArguments.Offsets.size() > NumInputs)
	{
		throw CLI::ValidationError("--offset", "is given " + std::to_string(InOutArguments.Offsets.size()) +
												   " times for " + std::to_string(NumInputs) +
												   (NumInputs == 1 ? " file" : " files"));
	}
	if (!InOutArguments.FormName.empty())
	{
		InOutArguments.Form = *ParseForm(InOutArguments.FormName);
	}
	else if (InOutArguments.Output != StandardOutput && InOutArguments.Batch.empty())
	{
		std::string Error;
		const std::optional<EConvertForm> Form = FindForm(InOutArguments.Output, Error);
		if (!Form)
		{
			throw CLI::ValidationError("--output", Error);
		}
		InOutArguments.Form = *Form;
	}
	const std::string Option = InOutArguments.Subtitles.FindGiven();
	if (InOutArguments.Form != EConvertForm::Ass && !Option.empty())
	{
		throw CLI::ValidationError(Option, "is only for subtitles; name an output that ends in .ass, or say --to ass");
	}
}

constexpr const char* Footer =
	R"(The ending of OUT decides what is written: .json is our own document, .xml an XML list, .ass subtitles that any player
shows, with each comment where the overlay places it.
Several files become one, sorted by time; what two of them share (the same ID, time, and text) is written once. The n-th
--offset belongs to the n-th file; files without one are not shifted. What was read, dropped and written is reported on
standard error. OUT appears only once it is complete; until then an existing file of that name stays as it is.

Examples:
  flitmark convert comments.xml -o comments.json
  flitmark convert comments.xml -o film.ass --size 1440x1080 && mpv film.mkv --sub-file=film.ass
  flitmark convert part1.xml part2.xml -o both.json --offset 0 --offset 24:10
  flitmark convert comments.json -o calmer.json --offset -1.5 --merge 5 --max-per-second 20 --block "(?i)spoiler"
  flitmark convert --batch comments -o documents
  flitmark convert comments.xml -o - | jq '.datas | length')";

} // namespace

void AddConvertCommand(CLI::App& InApp, int& OutExitCode)
{
	const auto Arguments = std::make_shared<FConvertArguments>();
	CLI::App* const Command = InApp.add_subcommand(
		"convert", "Convert comment files in any known format into one document, list, or subtitle");
	Command->add_option("IN", Arguments->Inputs, "Comment files");
	Command
		->add_option("--batch", Arguments->Batch, "Convert each file of comments in this folder; OUT is a folder then")
		->type_name("FOLDER");
	Command
		->add_option("-o,--output", Arguments->Output, "A file ending in .json, .xml, or .ass; - for standard output")
		->type_name("OUT")
		->required();
	Command->add_option("--to", Arguments->FormName, "What to write, whatever OUT's ending (default: for -, json)")
		->type_name("FORM")
		->check(CLI::IsMember({"json", "xml", "ass"}));
	Command
		->add_option(
			"--offset", Arguments->Offsets,
			"Shift a file's comments by this time, backward with a minus sign; at most one per file, in file order")
		->type_name("TIME")
		->allow_extra_args(false)
		->check(MakeCheck(&ParseOffset, OffsetRefusal));
	AddSubtitleOptions(*Command, Arguments->Subtitles);
	AddCommentOptions(*Command, Arguments->CommentOptions);
	Command->footer(Footer);
	Command->callback(
		[Arguments, &OutExitCode]
		{
			CheckInputs(*Arguments);
			CheckArguments(*Arguments);
			OutExitCode = Arguments->Batch.empty() ? RunConvert(*Arguments) : RunConvertBatch(*Arguments);
		});
}

} // namespace Flitmark
