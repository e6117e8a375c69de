#pragma once

#include "Blueprint/UserWidget.h"
#include "CoreMinimal.h"
#include "DanmakuDataStruct.h"
#include "Widgets/SVirtualWindow.h"

class UCanvasPanel;
class UDanmakuTrackManager;
class UFlitmarkOverlay;
class UMediaPlayer;
class UUI_DanmakuBar;
class UUI_DanmakuNode;
class UWorld;

/** A world, and an invisible window of 1920 x 1080 that lays out and ticks its contents. */
class FTestScreen
{
public:
	static constexpr double Width = 1920.0;
	static constexpr double Height = 1080.0;

	FTestScreen();
	~FTestScreen();
	FTestScreen(const FTestScreen&) = delete;
	FTestScreen& operator=(const FTestScreen&) = delete;

	/** A widget of the class that lives as long as the screen. */
	template <class WidgetT>
	WidgetT* Make()
	{
		WidgetT* Widget = CreateWidget<WidgetT>(World, WidgetT::StaticClass());
		Widget->AddToRoot();
		Widgets.Add(Widget);
		return Widget;
	}

	/** Constructs the widget as if it were on the screen. */
	void Construct(UUserWidget& Widget);
	/** Puts the widget in the window. */
	void Show(UUserWidget& Widget);
	/** Lays out and ticks what is shown; DeltaTime: seconds. */
	void RunFrame(float DeltaTime);

private:
	UWorld* World;
	TSharedPtr<SVirtualWindow> Window;
	TArray<UUserWidget*> Widgets;
	TArray<TSharedPtr<SWidget>> Constructed;
	double Time = 0.0;
};

/** The ready-made overlay on a screen, with lanes, at second 0 of a video, and with comments of specified sizes. */
class FTestOverlay
{
public:
	/** InBar may be null. */
	explicit FTestOverlay(FTestScreen& InScreen, UUI_DanmakuBar* InBar = nullptr);
	~FTestOverlay();
	FTestOverlay(const FTestOverlay&) = delete;
	FTestOverlay& operator=(const FTestOverlay&) = delete;

	/** A comment of that size, in canvas units; null if it found no place. */
	UUI_DanmakuNode* Spawn(double InWidth, double InHeight, EDanmakuMode Mode, bool bViewers = false);
	/** A comment on the canvas, in order of appearance; null beyond the last. */
	UUI_DanmakuNode* GetShown(int32 Index) const;
	int32 CountShown() const;

	UFlitmarkOverlay* Overlay;
	UDanmakuTrackManager* Manager = nullptr;

private:
	UCanvasPanel* Canvas;
	UMediaPlayer* MediaPlayer;
};
