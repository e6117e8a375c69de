#include "UI_Danmaku.h"

#include "Components/CanvasPanel.h"
#include "Components/CheckBox.h"
#include "DanmakuTrackManager.h"
#include "Dom/JsonObject.h"
#include "Dom/JsonValue.h"
#include "MediaPlayer.h"
#include "Serialization/JsonReader.h"
#include "Serialization/JsonSerializer.h"
#include "UI_DanmakuBar.h"
#include "UI_DanmakuNode.h"
#include "UI_DanmakuNodeSetting.h"

namespace
{

/** Truncates toward zero, and clamps to 32 bits. */
int32 ToInt32(double Number)
{
	if (!(Number > static_cast<double>(MIN_int32)))
	{
		return MIN_int32;
	}
	return Number < static_cast<double>(MAX_int32) ? static_cast<int32>(Number) : MAX_int32;
}

/** The record of one comment object. If the spawn time is missing or not a number, the comment is due at second 0. */
FDanmakuData ReadComment(const FJsonObject& Comment)
{
	FDanmakuData Data;
	Data.DanmakuID = ToInt32(Comment.GetNumberField(TEXT("danmaku_id")));
	Data.PostID = ToInt32(Comment.GetNumberField(TEXT("post_id")));
	Data.UserID = ToInt32(Comment.GetNumberField(TEXT("user_id")));
	Data.UserDisplayName = Comment.GetStringField(TEXT("user_display_name"));
	FDateTime::Parse(Comment.GetStringField(TEXT("danmaku_post_date")), Data.PostDate);
	int64 SpawnTicks = 0;
	Comment.TryGetNumberField(TEXT("danmaku_spawn_time"), SpawnTicks);
	Data.SpawnTime = FTimespan(SpawnTicks);
	Data.Content = Comment.GetStringField(TEXT("danmaku_content"));
	Data.Mode = static_cast<EDanmakuMode>(ToInt32(Comment.GetNumberField(TEXT("danmaku_mode"))));
	Data.FontSize = ToInt32(Comment.GetNumberField(TEXT("danmaku_font_size")));
	Data.FontColor = Comment.GetStringField(TEXT("danmaku_font_color"));
	return Data;
}

/** The second of the day in which a media time falls. */
FTimespan ToLookupKey(const FTimespan& MediaTime)
{
	return FTimespan(MediaTime.GetHours(), MediaTime.GetMinutes(), MediaTime.GetSeconds());
}

} // namespace

void UUI_Danmaku::Init(UMediaPlayer* InMediaPlayer, UUI_DanmakuBar* InDanmakuBar,
					   UUI_DanmakuNodeSetting* InDanmakuNodeSetting)
{
	MediaPlayer = InMediaPlayer;
	DanmakuBar = InDanmakuBar;
	if (DanmakuBar)
	{
		DanmakuBar->Init(MediaPlayer, InDanmakuNodeSetting);
		DanmakuBar->GetOpenDanmakuButtonClickedEvent().AddDynamic(this, &UUI_Danmaku::OnOpenDanmakuButtonClicked);
		DanmakuBar->OnSendDanmaku.AddDynamic(this, &UUI_Danmaku::OnDanmakuSend);
	}
	ForceLayoutPrepass();
}

void UUI_Danmaku::LoadDanmaku(const FString& JsonString)
{
	if (!bIsTrackManagerCreated)
	{
		return;
	}
	DanmakuDataMap.Empty();
	TSharedPtr<FJsonValue> Document;
	const TSharedRef<TJsonReader<TCHAR>> Reader = TJsonReaderFactory<TCHAR>::Create(JsonString);
	if (!FJsonSerializer::Deserialize(Reader, Document))
	{
		return;
	}
	const TSharedPtr<FJsonObject> Root = Document->AsObject();
	if (!Root.IsValid())
	{
		return;
	}
	for (const TSharedPtr<FJsonValue>& Element : Root->GetArrayField(TEXT("datas")))
	{
		const TSharedPtr<FJsonObject> Comment = Element->AsObject();
		if (Comment.IsValid())
		{
			AddDataToMap(ReadComment(*Comment));
		}
	}
}

void UUI_Danmaku::Empty()
{
	if (bIsTrackManagerCreated)
	{
		DanmakuCanvasPanel->ClearChildren();
		TrackManager->Empty();
	}
}

void UUI_Danmaku::Pause()
{
	if (bIsTrackManagerCreated)
	{
		TrackManager->Pause();
		bIsPaused = true;
	}
}

void UUI_Danmaku::Resume()
{
	if (bIsTrackManagerCreated)
	{
		TrackManager->Resume();
		bIsPaused = false;
	}
}

void UUI_Danmaku::NativeConstruct()
{
	Super::NativeConstruct();
	LastSpawnSecond = FTimespan(-1);
}

void UUI_Danmaku::NativeDestruct()
{
	Super::NativeDestruct();
	if (TrackManager)
	{
		TrackManager->ConditionalBeginDestroy();
	}
}

void UUI_Danmaku::NativeTick(const FGeometry& MyGeometry, float InDeltaTime)
{
	Super::NativeTick(MyGeometry, InDeltaTime);
	if (!EnsureTrackManager() || bIsPaused)
	{
		return;
	}
	const FTimespan Second = ToLookupKey(MediaPlayer->GetTime());
	if (Second == LastSpawnSecond)
	{
		return;
	}
	if (const TArray<FDanmakuData>* Due = DanmakuDataMap.Find(Second))
	{
		for (const FDanmakuData& Data : *Due)
		{
			TrackManager->SpawnDanmakuNode(Data);
		}
	}
	LastSpawnSecond = Second;
}

void UUI_Danmaku::AddDataToMap(const FDanmakuData& InDanmakuData)
{
	FindBucket(InDanmakuData).Add(InDanmakuData);
}

void UUI_Danmaku::AddDataToMap(FDanmakuData&& InDanmakuData)
{
	FindBucket(InDanmakuData).Add(MoveTemp(InDanmakuData));
}

TArray<FDanmakuData>& UUI_Danmaku::FindBucket(const FDanmakuData& InDanmakuData)
{
	const int64 Seconds = InDanmakuData.SpawnTime.GetTicks() / ETimespan::TicksPerSecond;
	return DanmakuDataMap.FindOrAdd(FTimespan::FromSeconds(static_cast<double>(Seconds)));
}

bool UUI_Danmaku::EnsureTrackManager()
{
	// A class without a blueprint has no canvas.
	if (!DanmakuCanvasPanel)
	{
		return false;
	}
	const auto& CanvasSize = DanmakuCanvasPanel->GetCachedGeometry().GetLocalSize();
	if ((CanvasSize.X == 0.f && CanvasSize.Y == 0.f) || !MediaPlayer)
	{
		return false;
	}
	if (!bIsTrackManagerCreated)
	{
		TrackManager = NewObject<UDanmakuTrackManager>(this);
		TrackManager->Init(DanmakuCanvasPanel, DanmakuNodeClass, DanmakuNodeUserClass);
		bIsTrackManagerCreated = true;
		if (bIsSwitchedOffEarly)
		{
			TrackManager->Close();
		}
	}
	return HasLiveTrackManager();
}

bool UUI_Danmaku::HasLiveTrackManager() const
{
	return bIsTrackManagerCreated && !TrackManager->HasAnyFlags(RF_BeginDestroyed);
}

void UUI_Danmaku::OnDanmakuSend(const FString&, const int64& InTime, const FString& InContent,
								const EDanmakuMode& InMode, const int32& InFontSize, const FString& InFontColor)
{
	// Before the first laid-out frame there is nowhere to show the comment; after the overlay is gone, nobody would see
	// it.
	if (!HasLiveTrackManager())
	{
		return;
	}
	FDanmakuData Data;
	Data.SpawnTime = FTimespan(InTime);
	Data.Content = InContent;
	Data.Mode = InMode;
	Data.FontSize = InFontSize;
	Data.FontColor = InFontColor;
	TrackManager->SpawnDanmakuNodeUser(Data);
	AddDataToMap(Data);
}

void UUI_Danmaku::OnOpenDanmakuButtonClicked(bool bIsChecked)
{
	if (!bIsTrackManagerCreated)
	{
		bIsSwitchedOffEarly = !bIsChecked;
	}
	const bool bHasTracks = HasLiveTrackManager();
	if (bIsChecked)
	{
		if (bHasTracks)
		{
			TrackManager->Open(MediaPlayer && MediaPlayer->IsPlaying());
		}
		if (DanmakuBar)
		{
			DanmakuBar->Open();
		}
	}
	else
	{
		if (DanmakuBar)
		{
			DanmakuBar->Close();
		}
		if (bHasTracks)
		{
			TrackManager->Close();
		}
	}
}
