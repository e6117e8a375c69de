#include "Commands.h"

#include "Activity.h"
#include "CommentOptions.h"
#include "DocumentReview.h"
#include "ExitCodes.h"
#include "Files/FileText.h"
#include "JsonLine.h"
#include "LaneReview.h"
#include "Message.h"
#include "OptionValues.h"
#include "Overlay/CellMeasure.h"
#include "Overlay/ScaledMeasure.h"
#include "OverlayOptions.h"
#include "SizeProbe.h"
#include "Values/OptionChecks.h"
#include "Values/TimeText.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>

namespace Flitmark
{

namespace
{

struct FCheckArguments
{
	std::string Comments;
	FCommentArguments CommentOptions;
	FOverlayArguments Overlay;
	std::string Size = "1920x1080";
	bool bJson = false;
};

/** "element 4", or "elements 4, 17, 30 and 1,201 more". */
std::string NameElements(const FFinding& InFinding)
{
	std::string Text = InFinding.Count == 1 ? "element " : "elements ";
	for (std::size_t Index = 0; Index < InFinding.Elements.size(); ++Index)
	{
		Text += (Index > 0 ? ", " : "") + std::to_string(InFinding.Elements[Index]);
	}
	const int64 NumMore = InFinding.Count - static_cast<int64>(InFinding.Elements.size());
	return NumMore > 0 ? Text + " and " + FormatCount(NumMore) + " more" : Text;
}

void PrintFindings(const FDocumentReview& InReview, bool bInSeen, const char* InTitle)
{
	bool bTitled = false;
	for (const FFinding& Finding : InReview.Findings)
	{
		if (Finding.bSeen == bInSeen)
		{
			std::printf("%s", bTitled ? "" : InTitle);
			PrintReport("%9s  %s: %s\n", FormatCount(Finding.Count), Finding.Text, NameElements(Finding));
			bTitled = true;
		}
	}
}

/** What became of the file before it was reviewed; nothing for our own document as it is. */
void PrintLoading(const FCommentsFile& InFile)
{
	if (InFile.Report.bImported)
	{
		PrintReport("%s\n", DescribeImport(InFile.Report));
	}
	for (const std::string& Note : InFile.MakeNotes())
	{
		PrintReport("%s\n", Note);
	}
}

void PrintReview(const FCommentsFile& InFile, const FDocumentReview& InReview, const FLaneReview& InLanes)
{
	PrintLoading(InFile);
	PrintReport("%s: %s, ", InFile.Report.Path, CountComments(InReview.NumComments));
	if (InReview.NumUnseen == 0)
	{
		std::printf("all can be seen%s\n", InLanes.Counts.NumNoLane > 0 ? " where there is a lane" : "");
	}
	else
	{
		std::printf("%s will not be seen\n", FormatCount(InReview.NumUnseen).c_str());
	}
	PrintFindings(InReview, false, "\nNot seen:\n");
	PrintFindings(InReview, true, "\nSeen, but perhaps not as intended:\n");
	if (!InReview.Findings.empty())
	{
		std::printf("(%s; the first is element 0)\n", InFile.Report.bImported || InFile.Report.NumCrowdedOut > 0
														  ? "numbered among the comments that are left"
														  : "elements of \"datas\"");
	}
	if (InReview.NumComments > 0)
	{
		const auto& Modes = InReview.NumOfMode;
		std::printf("\nmodes    %s scroll, %s top, %s bottom, %s other\n", FormatCount(Modes[0]).c_str(),
					FormatCount(Modes[1]).c_str(), FormatCount(Modes[2]).c_str(), FormatCount(Modes[3]).c_str());
	}
	if (InReview.NumSeconds > 0)
	{
		const auto Time = [](int64 InSecond)
		{
			return FormatTime(static_cast<double>(InSecond));
		};
		std::printf("times    %s to %s, %s second%s with comments\n", Time(InReview.FirstSecond).c_str(),
					Time(InReview.LastSecond).c_str(), FormatCount(InReview.NumSeconds).c_str(),
					InReview.NumSeconds == 1 ? "" : "s");
		std::printf("busiest  %s with %s comment%s\n", Time(InReview.BusiestSecond).c_str(),
					FormatCount(InReview.NumInBusiest).c_str(), InReview.NumInBusiest == 1 ? "" : "s");
	}
	PrintLanes(InLanes);
}

void AddText(FJsonLine& Line, std::string_view InKey, std::string_view InText)
{
	Line.Add(InKey, FromUtf8(InText));
}

void AddFinding(FJsonLine& Line, const FFinding& InFinding)
{
	Line.BeginObject();
	AddText(Line, "kind", InFinding.Kind);
	if (!InFinding.Key.empty())
	{
		AddText(Line, "key", InFinding.Key);
	}
	Line.Add("seen", InFinding.bSeen);
	AddText(Line, "text", InFinding.Text);
	Line.Add("count", InFinding.Count);
	Line.BeginArray("elements");
	for (const int64 Element : InFinding.Elements)
	{
		Line.Add("", Element);
	}
	Line.EndArray();
	Line.EndObject();
}

void AddReview(FJsonLine& Line, const FCommentsFile& InFile, const FDocumentReview& InReview)
{
	Line.Add("comments", InReview.NumComments);
	Line.Add("unseen", InReview.NumUnseen);
	Line.Add("crowded_out", InFile.Report.NumCrowdedOut);
	Line.BeginArray("findings");
	for (const FFinding& Finding : InReview.Findings)
	{
		AddFinding(Line, Finding);
	}
	Line.EndArray();
	Line.BeginObject("modes");
	Line.Add("scroll", InReview.NumOfMode[0]);
	Line.Add("top", InReview.NumOfMode[1]);
	Line.Add("bottom", InReview.NumOfMode[2]);
	Line.Add("other", InReview.NumOfMode[3]);
	Line.EndObject();
	Line.Add("seconds", InReview.NumSeconds);
	if (InReview.NumSeconds > 0)
	{
		Line.Add("first_second", InReview.FirstSecond);
		Line.Add("last_second", InReview.LastSecond);
		Line.Add("busiest_second", InReview.BusiestSecond);
		Line.Add("comments_in_busiest", InReview.NumInBusiest);
	}
}

/** The error of a text that is not a comment document, as a JSON object. */
void PrintFaultAsJson(const std::string& InPath, const FDocumentFault& InFault)
{
	FJsonLine Line;
	Line.BeginObject();
	AddText(Line, "file", InPath);
	Line.BeginObject("fault");
	AddText(Line, "text", InFault.Reason);
	if (InFault.Line > 0)
	{
		Line.Add("line", static_cast<int64>(InFault.Line));
		Line.Add("column", static_cast<int64>(InFault.Column));
	}
	Line.EndObject();
	Line.EndObject();
	PrintReport("%s\n", Line.GetText());
}

void AddLoading(FJsonLine& Line, const FCommentsFile& InFile)
{
	if (!InFile.Report.bImported)
	{
		return;
	}
	const FImportReport& Import = InFile.Report.Import;
	Line.BeginObject("import");
	AddText(Line, "format", ToText(Import.Format));
	Line.Add("read", static_cast<int64>(Import.NumRead));
	Line.Add("broken", static_cast<int64>(Import.NumBroken));
	Line.Add("repaired", static_cast<int64>(Import.NumRepaired));
	Line.Add("skipped", static_cast<int64>(Import.CountSkipped()));
	Line.Add("not_served", static_cast<int64>(InFile.Report.Kinds.CountDropped()));
	Line.BeginArray("notes");
	for (const std::string& Note : DescribeLosses(InFile.Report))
	{
		AddText(Line, "", Note);
	}
	Line.EndArray();
	Line.EndObject();
	Line.BeginArray("filters");
	for (const FFilterRule& Rule : InFile.Rules)
	{
		Line.BeginObject();
		AddText(Line, "rule", Rule.Name);
		Line.Add("taken", Rule.NumTaken);
		Line.Add("changed", Rule.NumChanged);
		Line.EndObject();
	}
	Line.EndArray();
}

void PrintReviewAsJson(const FCommentsFile& InFile, const FDocumentReview& InReview, const FLaneReview& InLanes)
{
	FJsonLine Line;
	Line.BeginObject();
	AddText(Line, "file", InFile.Report.Path);
	AddLoading(Line, InFile);
	AddReview(Line, InFile, InReview);
	AddLanes(Line, InLanes);
	Line.EndObject();
	PrintReport("%s\n", Line.GetText());
}

/** What texts are measured with: the fonts asked for, or without any a grid. */
std::unique_ptr<FSlateFontMeasure> FindMeasure(const FTextOptions& InOptions)
{
	std::string Error;
	if (std::unique_ptr<FTextMeasure> Measure = MakeMeasure(InOptions, Error))
	{
		return Measure;
	}
	PrintNote(Error + "; widths are estimated meanwhile");
	return std::make_unique<FCellMeasure>();
}

/** What a document's comments are for a viewer, each alone and among the others. */
struct FWholeReview
{
	FDocumentReview Comments;
	FLaneReview Lanes;
};

std::optional<FWholeReview> ReviewFile(const FCheckArguments& InArguments, const FCommentDocument& InDocument,
									   FActivity& InOutActivity, std::string& OutError)
{
	const FOverlaySettings& Settings = InArguments.Overlay.Settings;
	const std::unique_ptr<FSlateFontMeasure> Measure = FindMeasure(Settings.Text);
	FRehearsalOptions Options;
	Options.Size = *ParseCanvasSize(InArguments.Size);
	Options.Settings = Settings;
	Options.Measure = Measure.get();
	Options.Progress = [&InOutActivity](double InShare)
	{
		InOutActivity.SetShare(InShare);
	};
	FScaledMeasure Scaled(*Measure, Settings.FontScale);
	std::unique_ptr<FSizeProbe> Probe = FSizeProbe::Create(Settings.GetStageSize(Options.Size), Scaled, OutError);
	if (!Probe)
	{
		return std::nullopt;
	}
	FDocumentReview Review = ReviewDocument(InDocument, *Probe);
	Probe.reset();
	InOutActivity.SetWhat("looking for lanes");
	std::optional<FLaneReview> Lanes = ReviewLanes(InDocument, Options, OutError);
	return Lanes ? std::optional(FWholeReview{std::move(Review), std::move(*Lanes)}) : std::nullopt;
}

/** Nothing where the file cannot be read; that is told. */
std::optional<FCommentsFile> LoadToReview(const FCheckArguments& InArguments)
{
	std::string Error;
	std::optional<FDocumentFault> Fault;
	std::optional<FCommentSettings> Settings = FCommentSettings::Make(InArguments.CommentOptions, Error);
	if (Settings)
	{
		Settings->Options.bWithText = false;
	}
	std::optional<FCommentsFile> File =
		Settings ? LoadComments(InArguments.Comments, Settings->Options, Error, &Fault) : std::nullopt;
	if (!File && Fault && InArguments.bJson)
	{
		PrintFaultAsJson(InArguments.Comments, *Fault);
	}
	else if (!File)
	{
		PrintError(Error);
	}
	return File;
}

int RunCheck(const FCheckArguments& InArguments)
{
	std::string Error;
	auto Activity = std::make_unique<FActivity>("reading " + InArguments.Comments);
	std::optional<FCommentsFile> File = LoadToReview(InArguments);
	if (!File)
	{
		return ExitFailure;
	}
	File->Text = FString();
	const std::optional<FWholeReview> Review = ReviewFile(InArguments, File->Document, *Activity, Error);
	Activity.reset();
	if (!Review)
	{
		return PrintError(Error);
	}
	(InArguments.bJson ? PrintReviewAsJson : PrintReview)(*File, Review->Comments, Review->Lanes);
	return Review->Comments.NumUnseen == 0 && File->Report.CountLost() == 0 ? ExitSuccess : ExitFailure;
}

constexpr const char* Footer =
	R"(Exit status: 0 if every comment can be seen; 1 if some can't, if entries are damaged or not served, or if
there are none; 2 for wrong usage.
The overlay is run without a video: the comments that find no free lane among the others are counted, which is no fault.
COMMENTS may be - for standard input.

Examples:
  flitmark check comments.json
  flitmark check comments.xml --merge 5 --max-per-second 20
  flitmark check comments.json --json | jq '.findings[] | select(.seen | not)')";

/** A canvas that something can be seen on. */
std::optional<FVector2f> ParseShownSize(std::string_view InText)
{
	const std::optional<FVector2f> Size = ParseCanvasSize(InText);
	return Size && Size->X > 0.f && Size->Y > 0.f ? Size : std::nullopt;
}

} // namespace

void AddCheckCommand(CLI::App& InApp, int& OutExitCode)
{
	const auto Arguments = std::make_shared<FCheckArguments>();
	CLI::App* const Command =
		InApp.add_subcommand("check", "Tell which comments of a file a viewer will not see, and why");
	Command->add_option("COMMENTS", Arguments->Comments, "Comment file, in any known format")->required();
	Command->add_flag("--json", Arguments->bJson, "Print one JSON object, for programs");
	Command
		->add_option("--size", Arguments->Size,
					 "Canvas size in canvas units; decides which sizes fit, and how many comments")
		->type_name("WIDTHxHEIGHT")
		->check(MakeCheck(&ParseShownSize, "is not a size; try 1920x1080"))
		->capture_default_str();
	AddOverlayOptions(*Command, Arguments->Overlay, {.bOffset = false, .bPicture = false});
	AddCommentOptions(*Command, Arguments->CommentOptions);
	Command->footer(Footer);
	Command->callback([Arguments, &OutExitCode] { OutExitCode = RunCheck(*Arguments); });
}

} // namespace Flitmark
