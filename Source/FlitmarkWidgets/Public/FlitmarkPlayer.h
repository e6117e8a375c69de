#pragma once

#include "Blueprint/UserWidget.h"
#include "CoreMinimal.h"
#include "DanmakuDataStruct.h"
#include "FlitmarkCommentMode.h"
#include "Templates/SubclassOf.h"

#include "FlitmarkPlayer.generated.h"

class UImage;
class UMediaPlayer;
class UMediaTexture;
class UUI_Danmaku;
class UUI_DanmakuBar;
class UUI_DanmakuNodeSetting;

/** The viewer has sent a comment. Time: of the video. FontSize: points. */
DECLARE_DYNAMIC_MULTICAST_DELEGATE_SixParams(FOnFlitmarkCommentSent, const FString&, VideoURL, FTimespan, Time,
											 const FString&, Text, EFlitmarkCommentMode, Mode, int32, FontSize,
											 FLinearColor, Color);

/**
 * A video with comments in one widget: put it on the screen, then call Open and LoadComments, in either order. It holds the
 * picture, the overlay over it, the bar below it, and the panel that the bar shows. Sound needs a media sound component of
 * yours. Game thread only.
 *
 * A blueprint based on this class brings a tree of its own, with a widget "Overlay" and, where it wants them, "Video",
 * "Bar" and "Panel". Once off the screen the overlay is over, and this widget with it: hide it instead. The panel's delayed
 * hide runs on the world's timers, which stand while the game is paused.
 */
UCLASS(Blueprintable, meta = (DisplayName = "Flitmark Player"))
class FLITMARKWIDGETS_API UFlitmarkPlayer : public UUserWidget
{
	GENERATED_BODY()

public:
	UFlitmarkPlayer(const FObjectInitializer& ObjectInitializer);

	/**
	 * Shows what the media player plays, and flies comments to its time. Open a media with the media player as usual, before
	 * or after. InMediaTexture: the media player's texture; one is made without it.
	 */
	UFUNCTION(BlueprintCallable, Category = "Flitmark")
	void Open(UMediaPlayer* InMediaPlayer, UMediaTexture* InMediaTexture = nullptr);

	/**
	 * Replaces the comments by those of a document's text, starting with the present second of the video. Before the first
	 * frame on the screen, or before Open, the document is kept until then.
	 */
	UFUNCTION(BlueprintCallable, Category = "Flitmark")
	void LoadComments(const FString& Document);

	/** The same from a text file; false, with nothing changed, where it cannot be read. */
	UFUNCTION(BlueprintCallable, Category = "Flitmark")
	bool LoadCommentsFromFile(const FString& Path);

	/** The video and the comments go on. */
	UFUNCTION(BlueprintCallable, Category = "Flitmark")
	void Play();

	/** The video and the comments stand still. */
	UFUNCTION(BlueprintCallable, Category = "Flitmark")
	void Pause();

	/** Goes to a time of the video; comments of the old place leave. */
	UFUNCTION(BlueprintCallable, Category = "Flitmark")
	void Seek(FTimespan Time);

	/** Takes the comments off that are on the screen; later ones fly. For a canvas that has shrunk a lot. */
	UFUNCTION(BlueprintCallable, Category = "Flitmark")
	void ClearComments();

	/** Shows or hides the comments, as the bar's check box does. */
	UFUNCTION(BlueprintCallable, Category = "Flitmark")
	void SetCommentsVisible(bool bInVisible);

	UFUNCTION(BlueprintPure, Category = "Flitmark")
	bool AreCommentsVisible() const;

	/** For whoever stores or forwards comments; the viewer's own is on the screen already. */
	UPROPERTY(BlueprintAssignable, Category = "Flitmark")
	FOnFlitmarkCommentSent OnCommentSent;

	/** What the widget is made of, where no blueprint brings a tree. Without a class there is no bar, or no panel. */
	UPROPERTY(EditAnywhere, Category = "Flitmark")
	TSubclassOf<UUI_Danmaku> OverlayClass;

	UPROPERTY(EditAnywhere, Category = "Flitmark")
	TSubclassOf<UUI_DanmakuBar> BarClass;

	UPROPERTY(EditAnywhere, Category = "Flitmark")
	TSubclassOf<UUI_DanmakuNodeSetting> PanelClass;

	UPROPERTY(Transient, BlueprintReadOnly, Category = "Flitmark", meta = (BindWidgetOptional))
	TObjectPtr<UImage> Video;

	UPROPERTY(Transient, BlueprintReadOnly, Category = "Flitmark", meta = (BindWidget))
	TObjectPtr<UUI_Danmaku> Overlay;

	UPROPERTY(Transient, BlueprintReadOnly, Category = "Flitmark", meta = (BindWidgetOptional))
	TObjectPtr<UUI_DanmakuBar> Bar;

	UPROPERTY(Transient, BlueprintReadOnly, Category = "Flitmark", meta = (BindWidgetOptional))
	TObjectPtr<UUI_DanmakuNodeSetting> Panel;

protected:
	virtual void InitializeNativeClassData() override;
	virtual void NativeTick(const FGeometry& MyGeometry, float InDeltaTime) override;

private:
	/** Lets go of the media player before, so that nothing is subscribed twice. */
	void Disconnect();
	void Connect();
	void ShowVideo(UMediaTexture* InMediaTexture);

	/** Whether the overlay was laid out and connected, so that it takes documents. */
	bool HasLanes() const;
	/** Hands the overlay what was held back. */
	void HandOver();

	UFUNCTION()
	void OnPlaybackResumed();

	UFUNCTION()
	void OnPlaybackSuspended();

	UFUNCTION()
	void OnSeekCompleted();

	UFUNCTION()
	void OnBarSent(const FString& InURL, const int64& InTime, const FString& InContent, const EDanmakuMode& InMode,
				   const int32& InFontSize, const FString& InFontColor);

	UPROPERTY(Transient)
	TObjectPtr<UMediaPlayer> MediaPlayer;

	UPROPERTY(Transient)
	TObjectPtr<UMediaTexture> MediaTexture;

	/** A document that the overlay does not take yet. */
	FString HeldDocument;
	bool bHoldsDocument = false;
	bool bIsPaused = false;
	/** The overlay has been told whether it is paused. */
	bool bHasLanes = false;
};
