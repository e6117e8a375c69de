#include "Commands.h"

#include "Formats/CommentChange.h"
#include "Formats/CommentDocumentWriter.h"
#include "CommentOptions.h"
#include "Filtering/CommentOrder.h"
#include "Formats/CommentTraits.h"
#include "ExitCodes.h"
#include "Message.h"
#include "OptionValues.h"
#include "Files/TemporaryFile.h"
#include "Values/OptionChecks.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <iterator>
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
	/** The n-th belongs to the n-th input. */
	std::vector<std::string> Offsets;
	FCommentArguments CommentOptions;

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

bool WriteComments(const FConvertArguments& InArguments, std::vector<FCommentsInput> InInputs,
				   const FCommentFilter* InFilter, std::string& OutError)
{
	std::vector<FServiceComment> Comments;
	for (std::size_t Index = 0; Index < InInputs.size(); ++Index)
	{
		std::vector<FServiceComment>& More = InInputs[Index].Comments;
		if (!Gather(InInputs[Index], InArguments.GetOffset(Index), OutError))
		{
			return false;
		}
		if (Comments.empty())
		{
			Comments = std::move(More);
		}
		else
		{
			Comments.insert(Comments.end(), std::make_move_iterator(More.begin()), std::make_move_iterator(More.end()));
		}
		InInputs[Index] = {};
	}
	if (InInputs.size() > 1)
	{
		OrderByTime(Comments);
	}
	for (const FFilterRule& Rule : InFilter != nullptr ? InFilter->Apply(Comments) : std::vector<FFilterRule>())
	{
		PrintNote(DescribeRule(Rule));
	}
	const FWriteText Write = [&Comments](const FTextOutput& InOutput)
	{
		return WriteCommentDocument(Comments, InOutput);
	};
	if (!WriteOutput(InArguments.Output, Write, OutError))
	{
		return false;
	}
	const std::string Name = InArguments.Output == StandardOutput ? "standard output" : InArguments.Output;
	PrintNote(Name + ": " + CountComments(static_cast<int64>(Comments.size())) + " written");
	return true;
}

int RunConvert(const FConvertArguments& InArguments)
{
	std::string Error;
	const std::optional<FCommentSettings> Settings = FCommentSettings::Make(InArguments.CommentOptions, Error);
	std::optional<std::vector<FCommentsInput>> Inputs =
		Settings ? ReadInputs(InArguments, Settings->Options.Kinds, Error) : std::nullopt;
	if (!Inputs)
	{
		return PrintError(Error);
	}
	const bool bUnchanged =
		Inputs->size() == 1 && Inputs->front().Bytes && !Settings->Filter && InArguments.GetOffset(0) == 0;
	const bool bDone = bUnchanged ? CopyDocument(InArguments, Inputs->front(), Error)
								  : WriteComments(InArguments, std::move(*Inputs), Settings->Filter.get(), Error);
	return bDone ? ExitSuccess : PrintError(Error);
}

constexpr const char* Footer =
	R"(Several files become one document, sorted by time. The n-th --offset belongs to the n-th file; files without one are
not shifted. What was read, dropped and written is reported on standard error.
OUT appears only once it is complete; until then an existing file of that name stays as it is.

Examples:
  flitmark convert comments.xml -o comments.json
  flitmark convert part1.xml part2.xml -o both.json --offset 0 --offset 24:10
  flitmark convert comments.json -o calmer.json --offset -1.5 --merge 5 --max-per-second 20 --block "(?i)spoiler"
  flitmark convert comments.xml -o - | jq '.datas | length')";

} // namespace

void AddConvertCommand(CLI::App& InApp, int& OutExitCode)
{
	const auto Arguments = std::make_shared<FConvertArguments>();
	CLI::App* const Command =
		InApp.add_subcommand("convert", "Convert comment files in any known format into one document");
	Command->add_option("IN", Arguments->Inputs, "Comment files")->required();
	Command->add_option("-o,--output", Arguments->Output, "The document; - for standard output")
		->type_name("OUT")
		->required();
	Command
		->add_option(
			"--offset", Arguments->Offsets,
			"Shift a file's comments by this time, backward with a minus sign; at most one per file, in file order")
		->type_name("TIME")
		->allow_extra_args(false)
		->check(MakeCheck(&ParseOffset, OffsetRefusal));
	AddCommentOptions(*Command, Arguments->CommentOptions);
	Command->footer(Footer);
	Command->callback(
		[Arguments, &OutExitCode]
		{
			if (Arguments->Offsets.size() > Arguments->Inputs.size())
			{
				throw CLI::ValidationError("--offset", "is given " + std::to_string(Arguments->Offsets.size()) +
														   " times for " + std::to_string(Arguments->Inputs.size()) +
														   (Arguments->Inputs.size() == 1 ? " file" : " files"));
			}
			OutExitCode = RunConvert(*Arguments);
		});
}

} // namespace Flitmark
