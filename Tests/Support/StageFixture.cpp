#include "StageFixture.h"

#include "Engine/World.h"

#include <cmath>
#include <ostream>

namespace Flitmark
{

std::ostream& operator<<(std::ostream& Stream, const FLaneRun& Run)
{
	return Stream << Run.Count << " lanes from " << Run.First;
}

FStageFixture::FStageFixture()
{
	Rebuild(MakeOptions(FVector2f(1920.f, 1080.f)));
	Stage->Preroll();
}

FStageFixture::~FStageFixture()
{
	EndStage();
}

FStageOptions FStageFixture::MakeOptions(FVector2f CanvasSize)
{
	FStageOptions Options;
	Options.CanvasSize = CanvasSize;
	Options.Measure = &Measure;
	return Options;
}

void FStageFixture::EndStage()
{
	for (UObject* Object : Kept)
	{
		Object->RemoveFromRoot();
	}
	Kept.clear();
	Log.Release();
	Stage.reset();
}

void FStageFixture::Rebuild(const FStageOptions& InOptions)
{
	EndStage();
	std::string Error;
	Stage = FStage::Create(InOptions, Error);
	if (Stage == nullptr)
	{
		throw std::runtime_error(Error);
	}
	Stage->SetUrl(TEXT("file:///test"));
}

std::string FStageFixture::WriteDocument(const std::vector<FTestComment>& Comments)
{
	std::string Text;
	for (const FTestComment& Comment : Comments)
	{
		Text += Text.empty() ? "{\"datas\":[" : ",";
		Text += "{\"danmaku_spawn_time\":" + std::to_string(std::llround(Comment.Time * TicksPerSecond));
		Text += ",\"danmaku_content\":\"" + std::string(Comment.Content);
		Text += "\",\"danmaku_mode\":" + std::to_string(Comment.Mode) + "}";
	}
	return Text.empty() ? "{\"datas\":[]}" : Text + "]}";
}

void FStageFixture::Load(const std::vector<FTestComment>& Comments)
{
	Stage->GetOverlay().LoadDanmaku(FromUtf8(WriteDocument(Comments)));
}

void FStageFixture::GoTo(double Seconds)
{
	Stage->SetMediaTime(std::llround(Seconds * TicksPerSecond));
	Stage->RunFrame(0.f);
}

void FStageFixture::RunFrames(int32 Count, float DeltaTime)
{
	for (int32 Frame = 0; Frame < Count; ++Frame)
	{
		Stage->RunFrame(DeltaTime);
	}
}

FDanmakuData FStageFixture::MakeData(const char* Content, EDanmakuMode Mode)
{
	FDanmakuData Data;
	Data.Content = FromUtf8(Content);
	Data.Mode = Mode;
	Data.FontSize = 24;
	Data.FontColor = TEXT("#FFFFFF");
	return Data;
}

UUI_DanmakuNode* FStageFixture::MakeNode(const FDanmakuData& Data, bool bPaused)
{
	UUI_DanmakuNode* Node = CreateWidget<UUI_DanmakuNode>(&Stage->GetCanvas(), GetNodeClass());
	Node->Init(Data, &Stage->GetCanvas(), bPaused);
	return Node;
}

UClass* FStageFixture::GetNodeClass() const
{
	const UUI_Danmaku& Overlay = Stage->GetOverlay();
	return static_cast<UClass*>(
		Overlay.GetClass()->FindPropertyByName(TEXT("DanmakuNodeClass"))->GetObjectValue(&Overlay));
}

UDanmakuTrackManager* FStageFixture::GetManager() const
{
	const UUI_Danmaku& Overlay = Stage->GetOverlay();
	return static_cast<UDanmakuTrackManager*>(
		Overlay.GetClass()->FindPropertyByName(TEXT("TrackManager"))->GetObjectValue(&Overlay));
}

std::vector<UDanmakuTrack*> FStageFixture::GetTracks(const char* Group) const
{
	const FString Name = FromUtf8(Group) + TEXT("Tracks");
	const UDanmakuTrackManager* Manager = GetManager();
	std::vector<UDanmakuTrack*> Tracks;
	for (UObject* Track : Manager->GetClass()->FindPropertyByName(*Name)->GetObjectArray(Manager))
	{
		Tracks.push_back(static_cast<UDanmakuTrack*>(Track));
	}
	return Tracks;
}

std::vector<UUI_DanmakuNode*> FStageFixture::GetNodes(const UDanmakuTrack* Track)
{
	std::vector<UUI_DanmakuNode*> Nodes;
	for (UObject* Node : Track->GetClass()->FindPropertyByName(TEXT("Nodes"))->GetObjectArray(Track))
	{
		Nodes.push_back(static_cast<UUI_DanmakuNode*>(Node));
	}
	return Nodes;
}

FLaneRun FStageFixture::FindLanes(const char* Group, const UUI_DanmakuNode* Node) const
{
	FLaneRun Run;
	const std::vector<UDanmakuTrack*> Tracks = GetTracks(Group);
	for (std::size_t Index = 0; Index < Tracks.size(); ++Index)
	{
		const std::vector<UUI_DanmakuNode*> Nodes = GetNodes(Tracks[Index]);
		if (std::find(Nodes.begin(), Nodes.end(), Node) != Nodes.end())
		{
			Run.First = Run.Count == 0 ? static_cast<int32>(Index) : Run.First;
			++Run.Count;
		}
	}
	return Run;
}

std::vector<UUI_DanmakuNode*> FStageFixture::GetShown() const
{
	std::vector<UUI_DanmakuNode*> Nodes;
	for (int32 Index = 0; Index < Stage->GetCanvas().GetChildrenCount(); ++Index)
	{
		Nodes.push_back(Cast<UUI_DanmakuNode>(Stage->GetCanvas().GetChildAt(Index)));
	}
	return Nodes;
}

FTimerManager& FStageFixture::GetTimers() const
{
	return Stage->GetOverlay().GetWorld()->GetTimerManager();
}

int32 FStageFixture::GetInt(const UObject* Object, const TCHAR* Name)
{
	return *Object->GetClass()->FindPropertyByName(Name)->ContainerPtrToValuePtr<int32>(Object);
}

} // namespace Flitmark
