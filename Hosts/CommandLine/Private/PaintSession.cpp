#include "PaintSession.h"

#include "Comments/CommentsReport.h"
#include "DocumentReview.h"
#include "Message.h"
#include "SizeProbe.h"
#include "Values/OptionChecks.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace Flitmark
{

namespace
{

/** Bounds of --scale: from a canvas of a few lanes on a small video to one of thousands on a large one. */
constexpr double MinScale = 0.01;
constexpr double MaxScale = 100.0;

/** Whether a family that was found answers what was asked for; a generic name stands for any family. */
bool IsFamily(const std::string& InAsked, const std::string& InFound)
{
	const auto Lower = [](std::string InText)
	{
		std::ranges::transform(InText, InText.begin(),
							   [](unsigned char InLetter) { return static_cast<char>(std::tolower(InLetter)); });
		return InText;
	};
	const std::string Asked = Lower(InAsked.substr(0, InAsked.find_first_of(":-,")));
	const auto Generic = {"", "sans", "sans-serif", "serif", "mono", "monospace", "system-ui", "cursive", "fantasy"};
	return std::ranges::find(Generic, Asked) != Generic.end() || Lower(InFound).starts_with(Asked);
}

} // namespace

void AddPaintOptions(CLI::App& InCommand, FPaintArguments& InOutArguments, bool bInVideo)
{
	if (bInVideo)
	{
		InCommand.add_option("VIDEO", InOutArguments.Video, "Video file")->required();
	}
	InCommand.add_option("COMMENTS", InOutArguments.Comments, "File of comments, in any known format")->required();
	InCommand
		.add_option("--scale", InOutArguments.Scale,
					"Canvas units per video pixel; twice as many make comments half as large (default: a canvas 1080 "
					"units high, so that comments look the same on every video)")
		->check(MakeNumberCheck(MinScale, MaxScale));
	InCommand.add_option(
		"--font", InOutArguments.Font,
		"Font family, optionally with a style, as in \"Noto Sans:bold\" (default: the system's sans-serif)");
	InCommand.add_option("--opacity", InOutArguments.Opacity, "Opacity of the comments, from 0 to 1")
		->check(MakeNumberCheck(0.0, 1.0))
		->capture_default_str();
	InCommand
		.add_option("--seed", InOutArguments.Seed, "Seed of the comments' speeds; the same seed gives the same picture")
		->capture_default_str();
	InCommand
		.add_option("--threads", InOutArguments.Threads, "Threads for decoding and for encoding; 0 lets each decide")
		->check(MakeNumberCheck(0, 256))
		->capture_default_str();
	AddCommentOptions(InCommand, InOutArguments.CommentOptions);
}

std::unique_ptr<FPaintSession> FPaintSession::Open(const FPaintArguments& InArguments, std::string& OutError)
{
	auto Session = std::make_unique<FPaintSession>();
	Session->CommentsPath = InArguments.Comments;
	Session->UnitsPerPixel = InArguments.Scale;
	std::error_code Ignored;
	if (std::filesystem::equivalent(InArguments.Output, InArguments.Comments, Ignored))
	{
		OutError = InArguments.Output + ": is the file of the comments; name another output";
		return nullptr;
	}
	Session->Video = LoadVideoLibrary(OutError);
	std::optional<FVideoShape> Shape = InArguments.Shape;
	if (const auto Info =
			Session->Video != nullptr && !Shape ? Session->Video->Probe(InArguments.Video, OutError) : std::nullopt)
	{
		Shape = Info->Shape;
	}
	std::optional<FCommentsFile> Comments =
		Session->Video != nullptr && Shape
			? LoadCommentsAloud(InArguments.Comments, InArguments.CommentOptions, OutError)
			: std::nullopt;
	if (!Comments || !Session->LoadFont(InArguments.Font, OutError) ||
		!Session->ReportUnseen(Comments->Document, Session->Cover(*Shape), OutError))
	{
		return nullptr;
	}
	Session->Runner = FOverlayRunner::Create(*Session->Measure, InArguments.Seed, OutError);
	if (!Session->Runner)
	{
		return nullptr;
	}
	for (const FCommentEntry& Entry : Comments->Document.GetEntries())
	{
		Session->LastSecond =
			Entry.IsReached() ? std::max(Session->LastSecond, Entry.GetSecond()) : Session->LastSecond;
	}
	Session->Runner->GetSettings().Opacity = InArguments.Opacity;
	Session->Runner->Load(std::move(Comments->Text), ListTexts(Comments->Document));
	return Session;
}

FOverlayView FPaintSession::Cover(const FVideoShape& InShape) const
{
	return FOverlayView::Cover(FVector2D(InShape.Width, InShape.Height), InShape.PixelAspect,
							   UnitsPerPixel ? InShape.Height * *UnitsPerPixel : FOverlayView::UsualHeight);
}

void FPaintSession::Open(const FVideoShape& InShape)
{
	Runner->SetView(Cover(InShape));
	Sprites.emplace(Measure->GetEngine(), Runner->GetView().Scale);
}

void FPaintSession::Advance(int64 InTicks, double InDeltaSeconds, std::vector<FPlacedSprite>& OutSprites)
{
	Second = InTicks / ETimespan::TicksPerSecond;
	Runner->SetMediaTime(InTicks);
	Runner->RunFrame(InDeltaSeconds);
	Sprites->Place(Runner->GetScene(), Runner->GetSettings(), OutSprites);
}

bool FPaintSession::IsOver() const
{
	return Second > LastSecond && Runner->GetNumComments() == 0;
}

bool FPaintSession::LoadFont(const std::string& InFont, std::string& OutError)
{
	FTextOptions Options;
	Options.Family = InFont;
	Measure = FTextMeasure::Create(Options, OutError);
	if (!Measure)
	{
		return false;
	}
	const std::string& Found = Measure->GetEngine().PrimaryFamily();
	if (!IsFamily(InFont, Found))
	{
		PrintNote("--font: no family \"" + InFont + "\" is installed, " + Found +
				  " is used; \"fc-list : family\" lists them");
	}
	return true;
}

bool FPaintSession::ReportUnseen(const FCommentDocument& InDocument, const FOverlayView& InView,
								 std::string& OutError) const
{
	const std::unique_ptr<FSizeProbe> Probe = FSizeProbe::Create(InView.CanvasSize, *Measure, OutError);
	if (!Probe)
	{
		return false;
	}
	const FDocumentReview Review = ReviewDocument(InDocument, *Probe);
	if (Review.NumUnseen > 0)
	{
		PrintNote(CommentsPath + ": " + FormatCount(Review.NumUnseen) + " of " + FormatCount(Review.NumComments) +
				  (Review.NumComments == 1 ? " comment" : " comments") +
				  " will not be seen; \"flitmark check\" tells which and why");
	}
	return true;
}

void FPaintSession::ReportCuts() const
{
	if (Sprites && Sprites->WasCut())
	{
		PrintNote(CommentsPath + ": parts of some comments are not painted, because they are too long or too large");
	}
}

} // namespace Flitmark
