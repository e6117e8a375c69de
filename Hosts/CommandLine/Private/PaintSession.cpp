#include "PaintSession.h"

#include "Comments/CommentsReport.h"
#include "DocumentReview.h"
#include "Message.h"
#include "SizeProbe.h"
#include "Values/OptionChecks.h"

#include <CLI/CLI.hpp>

#include <filesystem>

namespace Flitmark
{

void AddPaintArguments(CLI::App& InCommand, FPaintArguments& InOutArguments)
{
	InCommand.add_option("VIDEO", InOutArguments.Video, "Video file")->required();
	InCommand.add_option("COMMENTS", InOutArguments.Comments, "File of comments, in any known format")->required();
}

void AddPaintOptions(CLI::App& InCommand, FPaintArguments& InOutArguments)
{
	InCommand
		.add_option("--threads", InOutArguments.Threads, "Threads for decoding and for encoding; 0 lets each decide")
		->check(MakeNumberCheck(0, 256))
		->capture_default_str();
	InCommand.add_flag("--allow-playlists", InOutArguments.bAllowPlaylists,
					   "Let VIDEO be a list of other files, and open them; without it only VIDEO itself is opened");
	AddOverlayOptions(InCommand, InOutArguments.Overlay);
	AddCommentOptions(InCommand, InOutArguments.CommentOptions);
}

std::unique_ptr<FPaintSession> FPaintSession::Open(const FPaintArguments& InArguments, std::string& OutError)
{
	auto Session = std::make_unique<FPaintSession>();
	Session->CommentsPath = InArguments.Comments;
	Session->Overlay = InArguments.Overlay;
	std::error_code Ignored;
	if (std::filesystem::equivalent(InArguments.Output, InArguments.Comments, Ignored))
	{
		OutError = InArguments.Output + ": is the file of the comments; name another output";
		return nullptr;
	}
	Session->Video = LoadVideoLibrary(OutError);
	const std::optional<FVideoInfo> Info =
		Session->Video != nullptr ? Session->Video->Probe({InArguments.Video, InArguments.bAllowPlaylists}, OutError)
								  : std::nullopt;
	std::optional<FCommentsFile> Comments =
		Info ? LoadCommentsAloud(InArguments.Comments, InArguments.CommentOptions, OutError) : std::nullopt;
	Session->Measure = Comments ? MakeMeasure(InArguments.Overlay.Settings.Text, OutError) : nullptr;
	if (!Session->Measure || !Session->ReportUnseen(Comments->Document, Session->Cover(Info->Shape), OutError))
	{
		return nullptr;
	}
	Session->Runner = FOverlayRunner::Create(*Session->Measure, InArguments.Overlay.Seed, OutError);
	if (!Session->Runner)
	{
		return nullptr;
	}
	Session->Runner->GetSettings() = InArguments.Overlay.Settings;
	Session->Runner->Load(std::move(Comments->Text), ListTexts(Comments->Document));
	return Session;
}

FOverlayView FPaintSession::Cover(const FVideoShape& InShape) const
{
	return Overlay.Cover(FVector2D(InShape.Width, InShape.Height), InShape.PixelAspect);
}

void FPaintSession::Open(const FVideoShape& InShape)
{
	Runner->SetView(Cover(InShape));
	Sprites.emplace(Measure->GetEngine(), Runner->GetView().Scale);
}

void FPaintSession::Advance(int64 InTicks, double InDeltaSeconds, std::vector<FPlacedSprite>& OutSprites)
{
	Runner->SetMediaTime(InTicks);
	Runner->RunFrame(InDeltaSeconds);
	Sprites->Place(Runner->GetScene(), Runner->GetSettings(), OutSprites);
}

void FPaintSession::Jump(int64 InTicks)
{
	Runner->SetMediaTime(InTicks);
	Runner->Jump();
}

bool FPaintSession::ReportUnseen(const FCommentDocument& InDocument, const FOverlayView& InView,
								 std::string& OutError) const
{
	const FOverlaySettings& Settings = Overlay.Settings;
	FScaledMeasure Scaled(*Measure, Settings.FontScale);
	const std::unique_ptr<FSizeProbe> Probe =
		FSizeProbe::Create(Settings.GetStageSize(InView.CanvasSize), Scaled, OutError);
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
