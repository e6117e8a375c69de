#include "DanmakuTrack.h"

#include "Components/PanelWidget.h"
#include "Engine/World.h"
#include "TimerManager.h"
#include "UI_DanmakuNode.h"

namespace
{

/** Seconds between two calls of a lane's timer. */
constexpr float TrackTickInterval = 0.5f;

} // namespace

UDanmakuTrack::UDanmakuTrack()
{
	if (UWorld* World = GetWorld())
	{
		World->GetTimerManager().SetTimer(TimerHandle, this, &UDanmakuTrack::OnTick, TrackTickInterval, true);
	}
}

void UDanmakuTrack::AddNode(UUI_DanmakuNode* Node)
{
	Nodes.Add(Node);
	Node->OnEnded.AddUObject(this, &UDanmakuTrack::OnNodeEnded);
	Node->OnCanceled.AddUObject(this, &UDanmakuTrack::OnNodeEnded);
}

void UDanmakuTrack::RemoveNode(UUI_DanmakuNode* Node)
{
	Nodes.Remove(Node);
}

bool UDanmakuTrack::CanAddNode(const UUI_DanmakuNode* Node) const
{
	switch (Node->GetData().Mode)
	{
	case EDanmakuMode::SCROLL:
		return CanAddScrollNode(Node);
	case EDanmakuMode::TOP:
		return CanAddTopNode(Node);
	case EDanmakuMode::BOTTOM:
		return CanAddBottomNode(Node);
	default:
		return false;
	}
}

void UDanmakuTrack::Pause()
{
	for (UUI_DanmakuNode* Node : Nodes)
	{
		Node->Pause();
	}
}

void UDanmakuTrack::Resume()
{
	for (UUI_DanmakuNode* Node : Nodes)
	{
		Node->Resume();
	}
}

void UDanmakuTrack::Empty()
{
	// A copy: a comment that leaves the canvas may be torn down at once, and then leaves the list too.
	const TArray<TObjectPtr<UUI_DanmakuNode>> Listed = Nodes;
	for (UUI_DanmakuNode* Node : Listed)
	{
		Node->RemoveFromParent();
	}
	Nodes.Empty();
}

void UDanmakuTrack::BeginDestroy()
{
	Nodes.Empty();
	if (UWorld* World = GetWorld())
	{
		World->GetTimerManager().ClearAllTimersForObject(this);
	}
	Super::BeginDestroy();
}

bool UDanmakuTrack::CanAddScrollNode(const UUI_DanmakuNode* Node) const
{
	if (Nodes.IsEmpty())
	{
		return true;
	}
	const UUI_DanmakuNode* Last = Nodes.Last();
	// The last comment may have left the canvas in this very frame and not be torn down yet; the newcomer is on the
	// same canvas.
	const UPanelWidget* Canvas = Last->GetParent() != nullptr ? Last->GetParent() : Node->GetParent();
	if (Canvas == nullptr)
	{
		return true;
	}
	const double CanvasWidth = Canvas->GetCachedGeometry().GetLocalSize().X;
	const double LastWidth = Last->GetNodeSize().X;
	// From the last comment's left edge to the canvas's right edge.
	const double Distance = static_cast<float>(CanvasWidth - Last->GetPosition().X);
	if (!(Distance > LastWidth))
	{
		return false;
	}
	const float LastSpeed = Last->GetRollSpeed();
	const float NodeSpeed = Node->GetRollSpeed();
	if (LastSpeed >= NodeSpeed)
	{
		return true;
	}
	const float CatchTime = static_cast<float>((Distance - LastWidth) / static_cast<double>(NodeSpeed - LastSpeed));
	const float ClearTime = static_cast<float>((CanvasWidth + LastWidth - Distance) / static_cast<double>(LastSpeed));
	return CatchTime > ClearTime;
}

bool UDanmakuTrack::CanAddTopNode(const UUI_DanmakuNode*) const
{
	return Nodes.IsEmpty();
}

bool UDanmakuTrack::CanAddBottomNode(const UUI_DanmakuNode*) const
{
	return Nodes.IsEmpty();
}

void UDanmakuTrack::OnNodeEnded(UUI_DanmakuNode* Node)
{
	RemoveNode(Node);
}

void UDanmakuTrack::OnTick()
{
}
