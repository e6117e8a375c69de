#include "TestScreen.h"

#include "Components/CanvasPanel.h"
#include "DanmakuTrackManager.h"
#include "Engine/World.h"
#include "FlitmarkOverlay.h"
#include "FlitmarkTestComment.h"
#include "Input/HittestGrid.h"
#include "MediaPlayer.h"
#include "Rendering/DrawElements.h"
#include "Types/PaintArgs.h"
#include "UI_DanmakuBar.h"
#include "UObject/UnrealType.h"

FTestScreen::FTestScreen()
	: World(UWorld::CreateWorld(EWorldType::Game, false))
	, Window(SNew(SVirtualWindow).Size(FVector2D(Width, Height)))
{
}

FTestScreen::~FTestScreen()
{
	Window.Reset();
	Constructed.Empty();
	for (UUserWidget* Widget : Widgets)
	{
		Widget->RemoveFromRoot();
	}
	World->DestroyWorld(false);
}

void FTestScreen::Construct(UUserWidget& Widget)
{
	Constructed.Add(Widget.TakeWidget());
}

void FTestScreen::Show(UUserWidget& Widget)
{
	Construct(Widget);
	Window->SetContent(Widget.TakeWidget());
}

void FTestScreen::RunFrame(float DeltaTime)
{
	const FVector2f Size(static_cast<float>(Width), static_cast<float>(Height));
	FHittestGrid Grid;
	Grid.SetHittestArea(FVector2f(0.f, 0.f), Size);
	FSlateWindowElementList Elements(Window);
	Time += static_cast<double>(DeltaTime);
	const FPaintArgs Arguments(nullptr, Grid, FVector2D(0.0, 0.0), Time, DeltaTime);
	Window->SlatePrepass(1.f);
	Window->Paint(Arguments, FGeometry::MakeRoot(Size, FSlateLayoutTransform()), FSlateRect(0.f, 0.f, Size.X, Size.Y),
				  Elements, 0, FWidgetStyle(), true);
}

FTestOverlay::FTestOverlay(FTestScreen& InScreen, UUI_DanmakuBar* InBar)
	: Overlay(InScreen.Make<UFlitmarkOverlay>())
	, Canvas(Cast<UCanvasPanel>(Overlay->GetWidgetFromName(TEXT("DanmakuCanvasPanel"))))
	, MediaPlayer(NewObject<UMediaPlayer>())
{
	MediaPlayer->AddToRoot();
	for (const TCHAR* Name : {TEXT("DanmakuNodeClass"), TEXT("DanmakuNodeUserClass")})
	{
		FindFProperty<FClassProperty>(Overlay->GetClass(), Name)
			->SetObjectPropertyValue_InContainer(Overlay, UFlitmarkTestComment::StaticClass());
	}
	InScreen.Show(*Overlay);
	Overlay->Init(MediaPlayer, InBar, nullptr);
	// The engine lays the canvas out after the overlay's first tick, so the lanes come with the second.
	InScreen.RunFrame(0.f);
	InScreen.RunFrame(0.f);
	const FObjectProperty* Member = FindFProperty<FObjectProperty>(UUI_Danmaku::StaticClass(), TEXT("TrackManager"));
	Manager = Cast<UDanmakuTrackManager>(Member->GetObjectPropertyValue_InContainer(Overlay));
}

FTestOverlay::~FTestOverlay()
{
	MediaPlayer->RemoveFromRoot();
}

UUI_DanmakuNode* FTestOverlay::Spawn(double InWidth, double InHeight, EDanmakuMode Mode, bool bViewers)
{
	UFlitmarkTestComment::NextSize = FVector2D(InWidth, InHeight);
	FDanmakuData Data;
	Data.Content = TEXT("comment");
	Data.Mode = Mode;
	Data.FontSize = 24;
	Data.FontColor = TEXT("#FFFFFF");
	const int32 Index = CountShown();
	if (bViewers)
	{
		Manager->SpawnDanmakuNodeUser(Data);
	}
	else
	{
		Manager->SpawnDanmakuNode(Data);
	}
	return GetShown(Index);
}

UUI_DanmakuNode* FTestOverlay::GetShown(int32 Index) const
{
	return Cast<UUI_DanmakuNode>(Canvas->GetChildAt(Index));
}

int32 FTestOverlay::CountShown() const
{
	return Canvas->GetChildrenCount();
}
