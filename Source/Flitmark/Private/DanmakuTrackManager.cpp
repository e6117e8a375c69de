#include "DanmakuTrackManager.h"

#include "Blueprint/UserWidget.h"
#include "Components/CanvasPanel.h"
#include "DanmakuDataStruct.h"
#include "DanmakuRandom.h"
#include "DanmakuTrack.h"
#include "UI_DanmakuNode.h"

namespace
{

/** Lane counts multiply by the reciprocal: a division would round some of them differently. */
constexpr double InverseTrackHeight = 0.06613756613756615;

constexpr float PercentScale = 0.01f;

/** A whole number of lanes; an absurdly large number is clamped. */
int32 ToTrackCount(double Count)
{
	return Count < static_cast<double>(MAX_int32) ? static_cast<int32>(Count) : MAX_int32;
}

/** How many lanes a comment takes. */
int32 ComputeTrackCount(const UUI_DanmakuNode* Node)
{
	return ToTrackCount(FMath::CeilToDouble(Node->GetNodeSize().Y * InverseTrackHeight));
}

/** A random first lane for a run of TrackCount lanes out of TrackNum; 0 if the run does not fit. */
int32 DrawStartIndex(int32 TrackNum, int32 TrackCount)
{
	const int32 Last = TrackNum - TrackCount;
	const int32 Choices = Last + 1;
	if (Choices < 1)
	{
		return 0;
	}
	return FMath::Min(static_cast<int32>(DrawDanmakuFraction() * static_cast<float>(Choices)), Last);
}

} // namespace

UDanmakuTrackManager::UDanmakuTrackManager(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
{
}

void UDanmakuTrackManager::Init(UCanvasPanel* InCanvasPanel, TSubclassOf<UUI_DanmakuNode> InNodeClass,
								TSubclassOf<UUI_DanmakuNode> InNodeUserClass)
{
	CanvasPanel = InCanvasPanel;
	NodeClass = InNodeClass;
	NodeUserClass = InNodeUserClass;

	ScrollTrackNum = ComputeTrackNum(ScrollArea);
	AddTracks(ScrollTracks, ScrollTrackNum);
	TopTrackNum = ComputeTrackNum(TopArea);
	AddTracks(TopTracks, TopTrackNum);
	BottomTrackNum = ComputeTrackNum(BottomArea);
	AddTracks(BottomTracks, BottomTrackNum);
}

void UDanmakuTrackManager::SpawnDanmakuNode(const FDanmakuData& InDanmakuData)
{
	if (bIsPaused)
	{
		return;
	}
	if (UUI_DanmakuNode* Node = CreateNode(NodeClass))
	{
		Node->OnStarted.AddUObject(this, &UDanmakuTrackManager::OnDanmakuNodeStarted);
		Node->OnEnded.AddUObject(this, &UDanmakuTrackManager::OnDanmakuNodeEnded);
		Node->OnCanceled.AddUObject(this, &UDanmakuTrackManager::OnDanmakuNodeCanceled);
		Node->Init(InDanmakuData, CanvasPanel, bIsPaused);
	}
}

void UDanmakuTrackManager::SpawnDanmakuNodeUser(const FDanmakuData& InDanmakuData)
{
	if (UUI_DanmakuNode* Node = CreateNode(NodeUserClass))
	{
		Node->OnStarted.AddUObject(this, &UDanmakuTrackManager::OnDanmakuNodeUserStarted);
		Node->OnEnded.AddUObject(this, &UDanmakuTrackManager::OnDanmakuNodeEnded);
		Node->OnCanceled.AddUObject(this, &UDanmakuTrackManager::OnDanmakuNodeCanceled);
		Node->Init(InDanmakuData, CanvasPanel, bIsPaused);
	}
}

int32 UDanmakuTrackManager::GetTrackNum() const
{
	return ScrollTracks.Num();
}

void UDanmakuTrackManager::Pause()
{
	for (const auto* Tracks : {&ScrollTracks, &TopTracks, &BottomTracks})
	{
		for (UDanmakuTrack* Track : *Tracks)
		{
			Track->Pause();
		}
	}
	bIsPaused = true;
}

void UDanmakuTrackManager::Resume()
{
	for (const auto* Tracks : {&ScrollTracks, &TopTracks, &BottomTracks})
	{
		for (UDanmakuTrack* Track : *Tracks)
		{
			Track->Resume();
		}
	}
	bIsPaused = false;
}

void UDanmakuTrackManager::Open(bool bResume)
{
	if (bResume)
	{
		Resume();
	}
	CanvasPanel->SetVisibility(ESlateVisibility::SelfHitTestInvisible);
}

void UDanmakuTrackManager::Close()
{
	CanvasPanel->SetVisibility(ESlateVisibility::Hidden);
	CanvasPanel->ClearChildren();
	Pause();
}

void UDanmakuTrackManager::Empty()
{
	for (const auto* Tracks : {&ScrollTracks, &TopTracks, &BottomTracks})
	{
		for (UDanmakuTrack* Track : *Tracks)
		{
			Track->Empty();
		}
	}
}

void UDanmakuTrackManager::Replay()
{
}

void UDanmakuTrackManager::BeginDestroy()
{
	for (UDanmakuTrack* Track : ScrollTracks)
	{
		Track->ConditionalBeginDestroy();
	}
	ScrollTracks.Empty();
	Super::BeginDestroy();
}

void UDanmakuTrackManager::UpdateLocalSize()
{
	ResizeGroup(ScrollTracks, ScrollArea, ScrollTrackNum);
	ResizeGroup(TopTracks, TopArea, TopTrackNum);
	ResizeGroup(BottomTracks, BottomArea, BottomTrackNum);
}

void UDanmakuTrackManager::ResizeGroup(TArray<TObjectPtr<UDanmakuTrack>>& Tracks, int32 Area, int32& TrackNum)
{
	const int32 NewNum = ComputeTrackNum(Area);
	AddTracks(Tracks, NewNum - TrackNum);
	for (int32 Index = TrackNum - 1; Index >= NewNum; --Index)
	{
		Tracks[Index]->Empty();
		Tracks.RemoveAt(Index);
	}
	TrackNum = NewNum;
}

void UDanmakuTrackManager::AddTracks(TArray<TObjectPtr<UDanmakuTrack>>& Tracks, int32 Count)
{
	for (int32 Added = 0; Added < Count; ++Added)
	{
		Tracks.Add(NewObject<UDanmakuTrack>(this));
	}
}

int32 UDanmakuTrackManager::ComputeTrackNum(int32 Area) const
{
	const float CanvasHeight = CanvasPanel->GetCachedGeometry().GetLocalSize().Y;
	const float AreaHeight = static_cast<float>(Area) * CanvasHeight * PercentScale;
	return ToTrackCount(static_cast<double>(AreaHeight) * InverseTrackHeight);
}

UUI_DanmakuNode* UDanmakuTrackManager::CreateNode(TSubclassOf<UUI_DanmakuNode> InClass) const
{
	// Reads as null unless it is a comment widget's class.
	UClass* Class = InClass.Get();
	return IsValid(Class) ? CreateWidget<UUI_DanmakuNode>(CanvasPanel, Class) : nullptr;
}

bool UDanmakuTrackManager::AddNodeToScrollTracks(UUI_DanmakuNode* Node, int32 StartIndex, int32 TrackCount)
{
	if (!AddNodeToTracks(ScrollTracks, Node, StartIndex, TrackCount))
	{
		return false;
	}
	const double CanvasWidth = CanvasPanel->GetCachedGeometry().GetLocalSize().X;
	FinishPlacement(Node, FVector2D(CanvasWidth, StartIndex * TrackHeight));
	return true;
}

bool UDanmakuTrackManager::AddNodeToTopTracks(UUI_DanmakuNode* Node, int32 StartIndex, int32 TrackCount)
{
	if (!AddNodeToTracks(TopTracks, Node, StartIndex, TrackCount))
	{
		return false;
	}
	const double Middle = CanvasPanel->GetCachedGeometry().GetLocalSize().X * 0.5f;
	FinishPlacement(Node, FVector2D(Middle - Node->GetNodeSize().X * 0.5, StartIndex * TrackHeight));
	return true;
}

bool UDanmakuTrackManager::AddNodeToBottomTracks(UUI_DanmakuNode* Node, int32 StartIndex, int32 TrackCount)
{
	if (!AddNodeToTracks(BottomTracks, Node, StartIndex, TrackCount))
	{
		return false;
	}
	const double Middle = CanvasPanel->GetCachedGeometry().GetLocalSize().X * 0.5f;
	const double CanvasHeight = CanvasPanel->GetCachedGeometry().GetLocalSize().Y;
	FinishPlacement(Node, FVector2D(Middle - Node->GetNodeSize().X * 0.5,
									CanvasHeight - StartIndex * TrackHeight - Node->GetNodeSize().Y));
	return true;
}

bool UDanmakuTrackManager::AddNodeToTracks(const TArray<TObjectPtr<UDanmakuTrack>>& Tracks, UUI_DanmakuNode* Node,
										   int32 StartIndex, int32 TrackCount) const
{
	// Written so that a comment of absurd height can't overflow the sum.
	if (TrackCount > Tracks.Num() - StartIndex)
	{
		Node->RemoveFromParent();
		return false;
	}
	for (int32 Index = StartIndex; Index < StartIndex + TrackCount; ++Index)
	{
		Tracks[Index]->AddNode(Node);
		Node->AddUsedTrack(Tracks[Index]);
	}
	return true;
}

void UDanmakuTrackManager::FinishPlacement(UUI_DanmakuNode* Node, const FVector2D& Position) const
{
	Node->SetPosition(Position);
	if (bIsPaused)
	{
		Node->Pause();
	}
}

const TArray<TObjectPtr<UDanmakuTrack>>* UDanmakuTrackManager::FindGroup(const UUI_DanmakuNode* Node) const
{
	switch (Node->GetData().Mode)
	{
	case EDanmakuMode::SCROLL:
		return &ScrollTracks;
	case EDanmakuMode::TOP:
		return &TopTracks;
	case EDanmakuMode::BOTTOM:
		return &BottomTracks;
	default:
		return nullptr;
	}
}

void UDanmakuTrackManager::AddNodeToGroup(UUI_DanmakuNode* Node, int32 StartIndex, int32 TrackCount)
{
	switch (Node->GetData().Mode)
	{
	case EDanmakuMode::SCROLL:
		AddNodeToScrollTracks(Node, StartIndex, TrackCount);
		break;
	case EDanmakuMode::TOP:
		AddNodeToTopTracks(Node, StartIndex, TrackCount);
		break;
	case EDanmakuMode::BOTTOM:
		AddNodeToBottomTracks(Node, StartIndex, TrackCount);
		break;
	default:
		break;
	}
}

bool UDanmakuTrackManager::AddNodeToFirstFree(UUI_DanmakuNode* Node, const TArray<TObjectPtr<UDanmakuTrack>>& Tracks,
											  int32 TrackCount)
{
	for (int32 Index = 0; Index < Tracks.Num(); ++Index)
	{
		if (Tracks[Index]->CanAddNode(Node))
		{
			AddNodeToGroup(Node, Index, TrackCount);
			return true;
		}
	}
	return false;
}

void UDanmakuTrackManager::OnDanmakuNodeStarted(UUI_DanmakuNode* DanmakuNode)
{
	UpdateLocalSize();
	const TArray<TObjectPtr<UDanmakuTrack>>* Tracks = FindGroup(DanmakuNode);
	if (Tracks == nullptr || !AddNodeToFirstFree(DanmakuNode, *Tracks, ComputeTrackCount(DanmakuNode)))
	{
		DanmakuNode->RemoveFromParent();
	}
}

void UDanmakuTrackManager::OnDanmakuNodeUserStarted(UUI_DanmakuNode* DanmakuNode)
{
	UpdateLocalSize();
	const TArray<TObjectPtr<UDanmakuTrack>>* Tracks = FindGroup(DanmakuNode);
	if (Tracks == nullptr)
	{
		// The panel offers no such mode; a host that sends one gets what the schedule would do.
		DanmakuNode->RemoveFromParent();
		return;
	}
	const int32 TrackCount = ComputeTrackCount(DanmakuNode);
	if (!AddNodeToFirstFree(DanmakuNode, *Tracks, TrackCount))
	{
		AddNodeToGroup(DanmakuNode, DrawStartIndex(Tracks->Num(), TrackCount), TrackCount);
	}
}

void UDanmakuTrackManager::OnDanmakuNodeEnded(UUI_DanmakuNode*)
{
}

void UDanmakuTrackManager::OnDanmakuNodeCanceled(UUI_DanmakuNode*)
{
}
