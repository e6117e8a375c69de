#include "PaintSession.h"

#include "Formats/CommentFormat.h"
#include "Message.h"
#include "Values/OptionChecks.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>

namespace Flitmark
{

void AddPaintArguments(CLI::App& InCommand, FPaintArguments& InOutArguments, bool bInVideo)
{
	if (bInVideo)
	{
		InCommand.add_option("VIDEO", InOutArguments.Video, "Video file")->required();
	}
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
	if (const FCommentFormat* const Format = InArguments.Shape ? nullptr : DetectFile(InArguments.Video))
	{
		OutError = InArguments.Video + ": is a file of comments (" + std::string(ToText(Format)) +
				   "), not a video; the video comes first, then the comments";
		return nullptr;
	}
	Session->Video = LoadVideoLibrary(OutError);
	std::optional<FVideoShape> Shape = InArguments.Shape;
	if (const auto Info = Session->Video != nullptr && !Shape
							  ? Session->Video->Probe({InArguments.Video, InArguments.bAllowPlaylists}, OutError)
							  : std::nullopt)
	{
		Shape = Info->Shape;
	}
	std::optional<FCommentsFile> Comments =
		Session->Video != nullptr && Shape
			? LoadCommentsAloud(InArguments.Comments, InArguments.CommentOptions, OutError)
			: std::nullopt;
	Session->Measure = Comments ? MakeMeasure(InArguments.Overlay.Settings.Text, OutError) : nullptr;
	if (Session->Measure)
	{
		Session->Runner = FOverlayRunner::Create(*Session->Measure, InArguments.Overlay.Seed, OutError);
	}
	if (!Session->Runner)
	{
		return nullptr;
	}
	Session->Runner->GetSettings() = InArguments.Overlay.Settings;
	Session->BeginTicks = InArguments.BeginTicks;
	Session->Due = FDueSeconds(Comments->Document);
	Session->NumCrowdedOut = Comments->Report.NumCrowdedOut;
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
	if (!NumOver && InTicks >= BeginTicks)
	{
		NumOver = CountOver();
	}
	Runner->SetMediaTime(InTicks);
	Runner->RunFrame(InDeltaSeconds);
	Sprites->Place(Runner->GetScene(), Runner->GetSettings(), OutSprites);
}

bool FPaintSession::IsOver() const
{
	return Runner->GetStage().GetMediaTime() / ETimespan::TicksPerSecond > Due.GetLast() &&
		   Runner->GetNumComments() == 0;
}

void FPaintSession::Jump(int64 InTicks)
{
	Runner->SetMediaTime(InTicks);
	Runner->Jump();
}

int64 FPaintSession::CountOver() const
{
	const FPlacementTally& Tally = Runner->GetTally();
	return Tally.GetCounts().NumShown - Tally.CountPresent();
}

FViewerReport FPaintSession::GetReport() const
{
	FViewerReport Report =
		Due.Report(Runner->GetFirstSecond(), Runner->GetLastSecond(), Runner->GetTally().GetCounts());
	Report.NumOver = NumOver ? *NumOver : CountOver();
	Report.Placed.NumShown -= Report.NumOver;
	Report.NumCrowdedOut = NumCrowdedOut;
	Report.NumComments += NumCrowdedOut;
	return Report;
}

void FPaintSession::ReportCuts() const
{
	if (Sprites && Sprites->WasCut())
	{
		PrintNote(CommentsPath + ": parts of some comments are not painted, because they are too long or too large");
	}
}

} // namespace Flitmark
