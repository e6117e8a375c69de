#include "SubtitleOutput.h"

#include "Comments/CommentsReport.h"
#include "DocumentReview.h"
#include "Files/FileText.h"
#include "Formats/CommentTraits.h"
#include "Message.h"
#include "OptionValues.h"
#include "Overlay/OverlayRunner.h"
#include "Overlay/ScaledMeasure.h"
#include "Subtitles/AssWriter.h"
#include "Values/OptionChecks.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>

namespace Flitmark
{

namespace
{

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

/** How many comments can't be seen whatever else is on the canvas; empty with OutError set where no stage can be built. */
std::optional<int64> CountUnseen(const FCommentDocument& InDocument, FVector2f InSize,
								 const FOverlaySettings& InSettings, FTextMeasure& InMeasure, std::string& OutError)
{
	FScaledMeasure Scaled(InMeasure, InSettings.FontScale);
	const std::unique_ptr<FSizeProbe> Probe = FSizeProbe::Create(InSettings.GetStageSize(InSize), Scaled, OutError);
	return Probe ? std::optional(ReviewDocument(InDocument, *Probe).NumUnseen) : std::nullopt;
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
	const std::size_t NumEarlier = InCommand.get_options().size();
	InCommand
		.add_option(
			"--size", InOutArguments.Size,
			"Canvas size in canvas units; its shape should be the video's, and a larger one makes comments smaller")
		->type_name("WIDTHxHEIGHT")
		->check(MakeCheck(&ParseWholeSize, "is not a size in whole numbers; try 1920x1080"))
		->capture_default_str();
	InCommand.add_option("--fps", InOutArguments.Fps, "Frames per second at which the overlay runs")
		->check(MakeNumberCheck(1, 1000))
		->capture_default_str();
	AddOverlayOptions(InCommand, InOutArguments.Overlay, {.bOffset = false, .bScale = false});
	const std::vector<CLI::Option*> All = InCommand.get_options();
	InOutArguments.Options.assign(All.begin() + static_cast<std::ptrdiff_t>(NumEarlier), All.end());
	for (CLI::Option* const Option : InOutArguments.Options)
	{
		Option->group("Subtitles (.ass): how the comments look and move");
	}
}

std::string FSubtitleArguments::FindGiven() const
{
	const auto Given = std::ranges::find_if(Options, [](const CLI::Option* InOption) { return InOption->count() > 0; });
	return Given != Options.end() ? (*Given)->get_name() : std::string();
}

std::unique_ptr<FSubtitleOutput> FSubtitleOutput::Make(std::vector<FServiceComment> InComments,
													   const FSubtitleArguments& InArguments, std::string& OutError)
{
	const FOverlaySettings& Settings = InArguments.Overlay.Settings;
	auto Output = std::make_unique<FSubtitleOutput>();
	Output->Opacity = Settings.Opacity;
	Output->Measure = MakeMeasure(Settings.Text, OutError);
	const FVector2f Size = *ParseWholeSize(InArguments.Size);
	const FCommentDocument Document = FCommentDocument::Of(InComments);
	const std::optional<int64> NumUnseen =
		Output->Measure ? CountUnseen(Document, Size, Settings, *Output->Measure, OutError) : std::nullopt;
	const std::unique_ptr<FOverlayRunner> Runner =
		NumUnseen ? FOverlayRunner::Create(*Output->Measure, InArguments.Overlay.Seed, OutError) : nullptr;
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
	Runner->GetSettings() = Settings;
	Runner->Load(FromUtf8(Text), ListTexts(Document));
	Runner->SetView({Size, {}});
	Output->Placed = PlaceComments(*Runner, Document, InArguments.Fps);
	// What has nothing to show takes a lane all the same, but makes no subtitle.
	std::erase_if(Output->Placed.Comments,
				  [](const FPlacedComment& InComment) { return !HasText(InComment.Style->Style.Text); });
	const auto NumAll = static_cast<int64>(Document.GetEntries().size());
	ReportMissing(*NumUnseen, NumAll - *NumUnseen - Output->CountComments());
	return Output;
}

bool FSubtitleOutput::Write(const FTextOutput& InOutput) const
{
	return WriteAss(Placed, Measure->GetEngine(), Opacity, InOutput);
}

} // namespace Flitmark
