#include "TraceRunner.h"

#include "Formats/CommentDocument.h"
#include "Components/CanvasPanel.h"
#include "DanmakuTrack.h"
#include "DanmakuTrackManager.h"
#include "TraceViewer.h"
#include "UI_Danmaku.h"
#include "UI_DanmakuNode.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace Flitmark
{

namespace
{

constexpr int64 SecondsPerDay = 86'400;

} // namespace

FTraceRunner::FTraceRunner(FTraceOptions InOptions, std::FILE* InOutput)
	: Options(std::move(InOptions))
	, Output(InOutput)
	, Scaled(*Options.Measure, Options.Settings.FontScale)
	, Base(Options.Start)
{
}

FTraceRunner::~FTraceRunner()
{
	bTracing = false;
	Stage.reset();
	IWidgetObserver::Install(nullptr);
}

int64 FTraceRunner::GetMediaTime() const
{
	// The clock stands at its last tick; both parts are 0 or more.
	const int64 Played = PlayedFrames * ETimespan::TicksPerSecond / Options.Fps;
	return Base + std::min(Played, std::numeric_limits<int64>::max() - Base);
}

bool FTraceRunner::Run(std::string& OutError)
{
	FStageOptions StageOptions;
	StageOptions.CanvasSize = Options.Settings.GetStageSize(Options.Size);
	StageOptions.Seed = Options.Seed;
	StageOptions.Measure = &Scaled;
	StageOptions.Settings = Options.Script.Settings;
	Stage = FStage::Create(StageOptions, OutError);
	if (Stage == nullptr)
	{
		return false;
	}
	Stage->SetUrl(TEXT("file:///scenario"));
	IWidgetObserver::Install(this);
	Stage->Preroll();

	int64 LastSecond = -1;
	if (Options.Document)
	{
		Stage->GetOverlay().LoadDanmaku(*Options.Document);
		// A canvas without size has not been laid out, and the document was not taken.
		if (Options.Size.X != 0.f || Options.Size.Y != 0.f)
		{
			LastSecond = FindLastSecond(*Options.Document);
		}
		Options.Document.reset();
	}

	bTracing = true;
	const bool bEndless = !Options.Frames;
	const int64 MaxFrames = Options.Frames.value_or(SecondsPerDay * Options.Fps);
	while (Frame < MaxFrames && RunFrame(LastSecond, bEndless))
	{
		++Frame;
	}
	bTracing = false;
	if (std::fflush(Output) != 0 || std::ferror(Output) != 0)
	{
		OutError = std::string("the trace cannot be written: ") + std::strerror(errno);
		return false;
	}
	return true;
}

bool FTraceRunner::RunFrame(int64 InLastSecond, bool bInEndless)
{
	PendingReports = 0;
	Stage->SetMediaTime(GetStageTime());
	Stage->SetPlaying(bPlaying);
	const std::vector<FTraceStep>& Steps = Options.Script.Steps;
	for (; NextStep < Steps.size() && Steps[NextStep].Frame == Frame; ++NextStep)
	{
		Execute(Steps[NextStep]);
		Stage->SetMediaTime(GetStageTime());
		Stage->SetPlaying(bPlaying);
	}
	const double FrameTime = 1.0 / Options.Fps;
	Stage->RunFrame(static_cast<float>(FrameTime * Options.Settings.Speed), static_cast<float>(FrameTime));
	for (; PendingReports > 0; --PendingReports)
	{
		WriteReport();
	}
	if (Options.bPositions)
	{
		WritePositions();
	}
	const bool bIdle =
		GetStageTime() / ETimespan::TicksPerSecond > InLastSecond && Stage->GetCanvas().GetChildrenCount() == 0;
	IdleFrames = bIdle ? IdleFrames + 1 : 0;
	PlayedFrames += bPlaying ? 1 : 0;
	return !bInEndless || IdleFrames < Options.Fps;
}

void FTraceRunner::Execute(const FTraceStep& InStep)
{
	switch (InStep.Action)
	{
	case ETraceAction::Pause:
	case ETraceAction::PlayerPause:
	case ETraceAction::Resume:
	case ETraceAction::PlayerResume:
		bPlaying = InStep.Action == ETraceAction::Resume || InStep.Action == ETraceAction::PlayerResume;
		Stage->SetPlaying(bPlaying);
		if (InStep.Action == ETraceAction::Pause)
		{
			Stage->GetOverlay().Pause();
		}
		else if (InStep.Action == ETraceAction::Resume)
		{
			Stage->GetOverlay().Resume();
		}
		break;
	case ETraceAction::Seek:
		Base = InStep.Number;
		PlayedFrames = 0;
		break;
	case ETraceAction::Url:
		Stage->SetUrl(InStep.Text);
		break;
	case ETraceAction::Resize:
		Stage->SetCanvasSize(Options.Settings.GetStageSize(InStep.Size));
		break;
	case ETraceAction::Load:
		Stage->GetOverlay().LoadDanmaku(InStep.Text);
		break;
	case ETraceAction::Empty:
		Stage->GetOverlay().Empty();
		break;
	case ETraceAction::Report:
		++PendingReports;
		break;
	default:
		ActAsViewer(InStep, *Stage);
		break;
	}
}

void FTraceRunner::OnWidgetCreated(UUserWidget& InWidget)
{
	UUI_DanmakuNode* Node = Cast<UUI_DanmakuNode>(&InWidget);
	if (bTracing && Node != nullptr)
	{
		Nodes[Node] = {++LastId, false};
		Node->OnEnded.AddRaw(this, &FTraceRunner::OnNodeEnded);
		Node->OnCanceled.AddRaw(this, &FTraceRunner::OnNodeCanceled);
	}
}

void FTraceRunner::OnPositionSet(UCanvasPanelSlot& InSlot)
{
	const auto Entry = Nodes.find(static_cast<const UUserWidget*>(InSlot.Content.Get()));
	if (!bTracing || Entry == Nodes.end() || Entry->second.bPlaced)
	{
		return;
	}
	Entry->second.bPlaced = true;
	const UUI_DanmakuNode& Node = static_cast<const UUI_DanmakuNode&>(*Entry->first);
	BeginLine("placed");
	AddRecord(Node, Entry->second);
	Line.Add("font_size", Node.GetData().FontSize);
	Line.Add("color", Node.GetData().FontColor);
	Line.Add("lane", FindLane(Node));
	Line.Add("lanes", Node.GetUseTracks().Num());
	Line.Add("x", Node.GetPosition().X);
	Line.Add("y", Node.GetPosition().Y);
	Line.Add("width", Node.GetNodeSize().X);
	Line.Add("height", Node.GetNodeSize().Y);
	Line.Add("speed", Node.GetRollSpeed());
	// What starts paused was made so before it was placed.
	Line.Add("paused", Node.IsPaused());
	EndLine();
}

void FTraceRunner::OnWidgetLeaving(UWidget& InWidget)
{
	const auto Entry = Nodes.find(static_cast<const UUserWidget*>(&InWidget));
	if (!bTracing || Entry == Nodes.end() || Entry->second.bPlaced)
	{
		return;
	}
	const UUI_DanmakuNode& Node = static_cast<const UUI_DanmakuNode&>(*Entry->first);
	BeginLine("dropped");
	AddRecord(Node, Entry->second);
	Line.Add("width", Node.GetNodeSize().X);
	Line.Add("height", Node.GetNodeSize().Y);
	Line.Add("speed", Node.GetRollSpeed());
	EndLine();
}

void FTraceRunner::OnNodeEnded(UUI_DanmakuNode* InNode)
{
	WriteIdLine("ended", InNode);
}

void FTraceRunner::OnNodeCanceled(UUI_DanmakuNode* InNode)
{
	WriteIdLine("canceled", InNode);
	Nodes.erase(InNode);
}

void FTraceRunner::WriteIdLine(std::string_view InEvent, const UUI_DanmakuNode* InNode)
{
	const auto Entry = Nodes.find(InNode);
	if (bTracing && Entry != Nodes.end())
	{
		BeginLine(InEvent);
		Line.Add("id", Entry->second.Id);
		EndLine();
	}
}

void FTraceRunner::BeginLine(std::string_view InEvent)
{
	Line.Clear();
	Line.BeginObject();
	Line.Add("frame", Frame);
	Line.Add("media", GetMediaTime());
	Line.Add("event", InEvent);
}

void FTraceRunner::EndLine()
{
	Line.EndObject();
	std::fwrite(Line.GetText().data(), 1, Line.GetText().size(), Output);
	std::fputc('\n', Output);
}

void FTraceRunner::AddRecord(const UUI_DanmakuNode& InNode, const FNodeInfo& InInfo)
{
	Line.Add("id", InInfo.Id);
	Line.Add("viewer", Stage->IsViewerComment(InNode));
	Line.Add("content", InNode.GetData().Content);
	Line.Add("mode", static_cast<int32>(InNode.GetData().Mode));
}

int64 FTraceRunner::FindLane(const UUI_DanmakuNode& InNode) const
{
	// Off the position: a comment without height has a place and no lane that lists it.
	const double FromEdge = InNode.GetData().Mode == EDanmakuMode::BOTTOM
								? static_cast<double>(Stage->GetCanvas().GetCachedGeometry().GetLocalSize().Y) -
									  InNode.GetPosition().Y - InNode.GetNodeSize().Y
								: InNode.GetPosition().Y;
	return std::llround(FromEdge / UDanmakuTrackManager::TrackHeight);
}

void FTraceRunner::WriteReport()
{
	const FTrackCounts Tracks = Stage->GetTrackCounts();
	BeginLine("report");
	Line.BeginObject("tracks");
	Line.Add("scroll", Tracks.Scroll);
	Line.Add("top", Tracks.Top);
	Line.Add("bottom", Tracks.Bottom);
	Line.Add("reverse", Tracks.Reverse);
	Line.EndObject();
	Line.Add("alive", Stage->GetCanvas().GetChildrenCount());
	AddViewerState(Line, *Stage);
	EndLine();
}

void FTraceRunner::WritePositions()
{
	BeginLine("frame");
	Line.BeginArray("nodes");
	UCanvasPanel& Canvas = Stage->GetCanvas();
	for (int32 Index = 0; Index < Canvas.GetChildrenCount(); ++Index)
	{
		const auto* Node = static_cast<const UUI_DanmakuNode*>(Canvas.GetChildAt(Index));
		Line.BeginArray();
		Line.Add({}, Nodes.at(Node).Id);
		Line.Add({}, Node->GetPosition().X);
		Line.Add({}, Node->GetPosition().Y);
		Line.EndArray();
	}
	Line.EndArray();
	EndLine();
}

} // namespace Flitmark
