#include "FlitmarkPlayer.h"

#include "Components/CheckBox.h"
#include "Components/Image.h"
#include "Components/Overlay.h"
#include "Components/OverlaySlot.h"
#include "Components/VerticalBox.h"
#include "Components/VerticalBoxSlot.h"
#include "FlitmarkBar.h"
#include "FlitmarkOverlay.h"
#include "FlitmarkPanel.h"
#include "MediaPlayer.h"
#include "MediaTexture.h"
#include "Misc/FileHelper.h"
#include "UObject/UnrealType.h"
#include "WidgetMaking.h"

namespace FlitmarkWidgets
{

/** Adds a widget on top of the others, filling the screen. */
static UOverlaySlot* AddToScreen(UOverlay& Screen, UWidget& Widget)
{
	UOverlaySlot* Place = Screen.AddChildToOverlay(&Widget);
	Place->SetHorizontalAlignment(HAlign_Fill);
	Place->SetVerticalAlignment(VAlign_Fill);
	return Place;
}

static UCheckBox* FindToggle(const UUI_DanmakuBar& Bar)
{
	return Cast<UCheckBox>(Bar.GetWidgetFromName(TEXT("OpenDanmakuButton")));
}

} // namespace FlitmarkWidgets

UFlitmarkPlayer::UFlitmarkPlayer(const FObjectInitializer& ObjectInitializer)
	: Super(ObjectInitializer)
	, OverlayClass(UFlitmarkOverlay::StaticClass())
	, BarClass(UFlitmarkBar::StaticClass())
	, PanelClass(UFlitmarkPanel::StaticClass())
{
}

void UFlitmarkPlayer::InitializeNativeClassData()
{
	using namespace FlitmarkWidgets;
	Super::InitializeNativeClassData();
	UWidgetTree& Tree = EnsureTree(*this);

	UOverlay& Screen = Make<UOverlay>(*this);
	Video = Tree.ConstructWidget<UImage>(UImage::StaticClass(), TEXT("Video"));
	AddToScreen(Screen, *Video);
	UClass* const UsedOverlay = OverlayClass ? OverlayClass.Get() : UFlitmarkOverlay::StaticClass();
	Overlay = Tree.ConstructWidget<UUI_Danmaku>(UsedOverlay, TEXT("Overlay"));
	// Whatever its class, it must not swallow clicks.
	Overlay->SetVisibility(ESlateVisibility::HitTestInvisible);
	AddToScreen(Screen, *Overlay);
	if (PanelClass)
	{
		Panel = Tree.ConstructWidget<UUI_DanmakuNodeSetting>(PanelClass.Get(), TEXT("Panel"));
		UOverlaySlot* Place = AddToScreen(Screen, *Panel);
		Place->SetHorizontalAlignment(HAlign_Left);
		Place->SetVerticalAlignment(VAlign_Bottom);
		Place->SetPadding(FMargin(12.f, 0.f, 0.f, 4.f));
	}

	UVerticalBox& Rows = Make<UVerticalBox>(*this);
	Rows.AddChildToVerticalBox(&Screen)->SetSize(FSlateChildSize(ESlateSizeRule::Fill));
	if (BarClass)
	{
		Bar = Tree.ConstructWidget<UUI_DanmakuBar>(BarClass.Get(), TEXT("Bar"));
		Rows.AddChildToVerticalBox(Bar);
	}
	Tree.RootWidget = &Rows;
}

void UFlitmarkPlayer::NativeTick(const FGeometry& MyGeometry, float InDeltaTime)
{
	Super::NativeTick(MyGeometry, InDeltaTime);
	if (!bHasLanes && HasLanes())
	{
		HandOver();
	}
}

void UFlitmarkPlayer::Open(UMediaPlayer* InMediaPlayer, UMediaTexture* InMediaTexture)
{
	Disconnect();
	MediaPlayer = InMediaPlayer;
	ShowVideo(InMediaTexture);
	Connect();
}

void UFlitmarkPlayer::Disconnect()
{
	if (MediaPlayer)
	{
		MediaPlayer->OnPlaybackResumed.RemoveAll(this);
		MediaPlayer->OnPlaybackSuspended.RemoveAll(this);
		MediaPlayer->OnSeekCompleted.RemoveAll(this);
	}
	if (Bar)
	{
		// A second initialization would subscribe the overlay twice.
		Bar->GetOpenDanmakuButtonClickedEvent().RemoveAll(Overlay);
		Bar->OnSendDanmaku.RemoveAll(Overlay);
		Bar->OnSendDanmaku.RemoveAll(this);
	}
	ClearComments();
}

void UFlitmarkPlayer::Connect()
{
	if (MediaPlayer)
	{
		MediaPlayer->OnPlaybackResumed.AddDynamic(this, &UFlitmarkPlayer::OnPlaybackResumed);
		MediaPlayer->OnPlaybackSuspended.AddDynamic(this, &UFlitmarkPlayer::OnPlaybackSuspended);
		MediaPlayer->OnSeekCompleted.AddDynamic(this, &UFlitmarkPlayer::OnSeekCompleted);
	}
	if (Overlay)
	{
		Overlay->Init(MediaPlayer, Bar, Panel);
	}
	if (Bar)
	{
		Bar->OnSendDanmaku.AddDynamic(this, &UFlitmarkPlayer::OnBarSent);
	}
}

void UFlitmarkPlayer::ShowVideo(UMediaTexture* InMediaTexture)
{
	MediaTexture = InMediaTexture;
	if (!MediaTexture && MediaPlayer)
	{
		MediaTexture = NewObject<UMediaTexture>(this);
		MediaTexture->SetMediaPlayer(MediaPlayer);
		MediaTexture->UpdateResource();
	}
	if (Video)
	{
		Video->SetBrushResourceObject(MediaTexture);
	}
}

void UFlitmarkPlayer::LoadComments(const FString& Document)
{
	HeldDocument = Document;
	bHoldsDocument = true;
	if (HasLanes())
	{
		HandOver();
	}
}

bool UFlitmarkPlayer::LoadCommentsFromFile(const FString& Path)
{
	FString Document;
	const bool bRead = FFileHelper::LoadFileToString(Document, *Path);
	if (bRead)
	{
		LoadComments(Document);
	}
	return bRead;
}

bool UFlitmarkPlayer::HasLanes() const
{
	// The only way to tell: an overlay without lanes ignores every call.
	const FObjectProperty* Manager = FindFProperty<FObjectProperty>(UUI_Danmaku::StaticClass(), TEXT("TrackManager"));
	return Overlay && Manager != nullptr && Manager->GetObjectPropertyValue_InContainer(Overlay) != nullptr;
}

void UFlitmarkPlayer::HandOver()
{
	bHasLanes = true;
	if (bHoldsDocument)
	{
		Overlay->LoadDanmaku(HeldDocument);
		HeldDocument = FString();
		bHoldsDocument = false;
		if (UFlitmarkOverlay* ReadyMade = Cast<UFlitmarkOverlay>(Overlay))
		{
			ReadyMade->RestartSecond();
		}
	}
	if (bIsPaused)
	{
		Overlay->Pause();
	}
}

void UFlitmarkPlayer::Play()
{
	if (MediaPlayer)
	{
		MediaPlayer->Play();
	}
	OnPlaybackResumed();
}

void UFlitmarkPlayer::Pause()
{
	if (MediaPlayer)
	{
		MediaPlayer->Pause();
	}
	OnPlaybackSuspended();
}

void UFlitmarkPlayer::Seek(FTimespan Time)
{
	if (MediaPlayer)
	{
		MediaPlayer->Seek(Time);
	}
	ClearComments();
}

void UFlitmarkPlayer::ClearComments()
{
	if (Overlay)
	{
		Overlay->Empty();
	}
}

void UFlitmarkPlayer::SetCommentsVisible(bool bInVisible)
{
	if (AreCommentsVisible() == bInVisible)
	{
		return;
	}
	UCheckBox* Toggle = Bar ? FlitmarkWidgets::FindToggle(*Bar) : nullptr;
	if (Toggle != nullptr)
	{
		Toggle->SetIsChecked(bInVisible);
		Toggle->OnCheckStateChanged.Broadcast(bInVisible);
	}
	else if (Overlay)
	{
		// A hidden overlay is not ticked: its comments would resume from where they were.
		ClearComments();
		Overlay->SetVisibility(bInVisible ? ESlateVisibility::HitTestInvisible : ESlateVisibility::Hidden);
	}
}

bool UFlitmarkPlayer::AreCommentsVisible() const
{
	const UCheckBox* Toggle = Bar ? FlitmarkWidgets::FindToggle(*Bar) : nullptr;
	return Toggle != nullptr ? Toggle->IsChecked() : Overlay && Overlay->GetVisibility() != ESlateVisibility::Hidden;
}

void UFlitmarkPlayer::OnPlaybackResumed()
{
	bIsPaused = false;
	if (Overlay)
	{
		Overlay->Resume();
	}
}

void UFlitmarkPlayer::OnPlaybackSuspended()
{
	bIsPaused = true;
	if (Overlay)
	{
		Overlay->Pause();
	}
}

void UFlitmarkPlayer::OnSeekCompleted()
{
	// Until now the media player reported the old time, and the overlay may have shown comments for the old position.
	ClearComments();
	if (UFlitmarkOverlay* ReadyMade = Cast<UFlitmarkOverlay>(Overlay))
	{
		ReadyMade->RestartSecond();
	}
}

void UFlitmarkPlayer::OnBarSent(const FString& InURL, const int64& InTime, const FString& InContent,
								const EDanmakuMode& InMode, const int32& InFontSize, const FString& InFontColor)
{
	OnCommentSent.Broadcast(InURL, FTimespan(InTime), InContent, static_cast<EFlitmarkCommentMode>(InMode), InFontSize,
							FLinearColor(FColor::FromHex(InFontColor)));
}
