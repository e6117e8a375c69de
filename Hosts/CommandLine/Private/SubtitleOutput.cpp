#include "SubtitleOutput.h"

#include "Comments/CommentsReport.h"
#include "DocumentReview.h"
#include "Files/FileText.h"
#include "Formats/CommentTraits.h"
#include "Message.h"
#include "OptionValues.h"
#include "Overlay/OverlayRunner.h"
#include "Subtitles/AssWriter.h"
#include "Values/OptionChecks.h"

#include <CLI/CLI.hpp>

#include <cmath>

namespace Flitmark
{

namespace
{

constexpr const char* SubtitleGroup = "Subtitles (.ass)";

/** Players count a subtitle's canvas in whole units. */
std::optional<FVector2f> ParseWholeSize(std::string_view InText)
{
	const std::optional<FVector2f> Size = ParseCanvasSize(InText);
	const auto IsWhole = [](float InLength)
	{
		return InLength >= 1.f && InLength == std::floor(InLength);
	};
	return Size && IsWhole(Size->X) && IsWhole(Size->Y) ? Size : std::nullopt;
}

/** What there is to say about comments that are not among the subtitles. */
void ReportMissing(int64 InNumUnseen, int64 InNumWithoutLane)
{
	if (InNumUnseen > 0)
	{
		PrintNote(CountComments(InNumUnseen) +
				  " can't be seen on any canvas of that size; \"flitmark check\" tells which and why");
	}
	if (InNumWithoutLane > 0)
	{
		PrintNote(CountComments(InNumWithoutLane) +
				  " found no free lane; a larger --size has more lanes, with smaller comments");
	}
}

} // namespace

void AddSubtitleOptions(CLI::App& InCommand, FSubtitleArguments& InOutArguments)
{
	InCommand
		.add_option(
			"--size", InOutArguments.Size,
			"Canvas size in canvas units; its shape should be the video's, and a larger one makes comments smaller")
		->type_name("WIDTHxHEIGHT")
		->check(MakeCheck(&ParseWholeSize, "is not a size in whole numbers; try 1920x1080"))
		->capture_default_str()
		->group(SubtitleGroup);
	InCommand.add_option("--fps", InOutArguments.Fps, "Frames per second at which the overlay runs")
		->check(MakeNumberCheck(1, 1000))
		->capture_default_str()
		->group(SubtitleGroup);
	InCommand
		.add_option("--font", InOutArguments.Font,
					"Font family that the player has, too, optionally with a style (default: the system's sans-serif)")
		->group(SubtitleGroup);
	InCommand.add_option("--opacity", InOutArguments.Opacity, "Opacity of the comments, from 0 to 1")
		->check(MakeNumberCheck(0.0, 1.0))
		->capture_default_str()
		->group(SubtitleGroup);
	InCommand
		.add_option("--seed", InOutArguments.Seed, "Seed of the comments' speeds; the same seed gives the same places")
		->capture_default_str()
		->group(SubtitleGroup);
}

std::string FindSubtitleOption(const CLI::App& InCommand)
{
	for (const CLI::Option* const Option : InCommand.get_options())
	{
		if (Option->get_group() == SubtitleGroup && Option->count() > 0)
		{
			return Option->get_name();
		}
	}
	return {};
}

std::unique_ptr<FSubtitleOutput> FSubtitleOutput::Make(std::vector<FServiceComment> InComments,
													   const FSubtitleArguments& InArguments, std::string& OutError)
{
	auto Output = std::make_unique<FSubtitleOutput>();
	Output->Opacity = InArguments.Opacity;
	FTextOptions Fonts;
	Fonts.Family = InArguments.Font;
	Output->Measure = FTextMeasure::Create(Fonts, OutError);
	if (!Output->Measure)
	{
		return nullptr;
	}
	const FVector2f Size = *ParseWholeSize(InArguments.Size);
	const FCommentDocument Document = FCommentDocument::Of(InComments);
	int64 NumUnseen = 0;
	{
		const std::unique_ptr<FSizeProbe> Probe = FSizeProbe::Create(Size, *Output->Measure, OutError);
		if (!Probe)
		{
			return nullptr;
		}
		NumUnseen = ReviewDocument(Document, *Probe).NumUnseen;
	}
	const std::unique_ptr<FOverlayRunner> Runner = FOverlayRunner::Create(*Output->Measure, InArguments.Seed, OutError);
	if (!Runner)
	{
		return nullptr;
	}
	std::string Text = WriteCommentDocument(InComments);
	InComments = {};
	if (Text.size() > MAX_int32)
	{
		OutError = "more than 2 GiB of comments are more than can be placed; leave some out, as with --max-per-second";
		return nullptr;
	}
	Runner->Load(FromUtf8(Text), ListTexts(Document));
	Runner->SetView({Size, {}});
	Output->Placed = PlaceComments(*Runner, Document, InArguments.Fps);
	// What has nothing to show takes a lane all the same, but makes no subtitle.
	std::erase_if(Output->Placed.Comments,
				  [](const FPlacedComment& InComment) { return !HasText(InComment.Style->Style.Text); });
	const auto NumAll = static_cast<int64>(Document.GetEntries().size());
	ReportMissing(NumUnseen, NumAll - NumUnseen - Output->CountComments());
	return Output;
}

bool FSubtitleOutput::Write(const FTextOutput& InOutput) const
{
	return WriteAss(Placed, Measure->GetEngine(), Opacity, InOutput);
}

} // namespace Flitmark
