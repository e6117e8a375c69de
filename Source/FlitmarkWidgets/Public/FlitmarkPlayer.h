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

/** The viewer has sent a comment. Time: the video's. FontSize: points. */
DECLARE_DYNAMIC_MULTICAST_DELEGATE_SixParams(FOnFlitmarkCommentSent, const FString&, VideoURL, FTimespan, Time,
											 const FString&, Text, EFlitmarkCommentMode, Mode, int32, FontSize,
											 FLinearColor, Color);

/**
 * A video with comments in one widget: put it on the screen, then call Open and LoadComments, in either order. It holds
 * the picture, the overlay on top, the bar below, and the panel that the bar opens. For sound, add a media sound
 * component. Game thread only.
 *
 * A blueprint based on this class provides its own tree, with a widget "Overlay" and, optionally, "Video", "Bar" and
 * "Panel". Once off the screen, the overlay stops working, and so does this widget: hide it instead. The panel's
 * delayed hide runs on the world's timers, which stop while the game is paused.
 */
UCLASS(Blueprintable, meta = (DisplayName = "Flitmark Player"))
class FLITMARKWIDGETS_API UFlitmarkPlayer : public UUserWidget
{
	GENERATED_BODY()

public:
	UFlitmarkPlayer(const FObjectInitializer& ObjectInitializer);

	/**
	 * Shows what the media player plays, with comments in sync. Open media with the media player as usual, before or
	 * after. InMediaTexture: the media player's texture; if null, one is created.
	 */
	UFUNCTION(BlueprintCallable, Category = "Flitmark")
	void Open(UMediaPlayer* InMediaPlayer, UMediaTexture* InMediaTexture = nullptr);

	/**
	 * Replaces the comments with those of a document's text, starting with the video's current second. Before the first
	 * frame on the screen, or before Open, the document is kept until then.
	 */
	UFUNCTION(BlueprintCallable, Category = "Flitmark")
	void LoadComments(const FString& Document);

	/** The same from a text file; false, with nothing changed, if it cannot be read. */
	UFUNCTION(BlueprintCallable, Category = "Flitmark")
	bool LoadCommentsFromFile(const FString& Path);

	/** Resumes the video and the comments. */
	UFUNCTION(BlueprintCallable, Category = "Flitmark")
	void Play();

	/** Pauses the video and the comments. */
	UFUNCTION(BlueprintCallable, Category = "Flitmark")
	void Pause();

	/** Seeks the video; the old position's comments are removed. */
	UFUNCTION(BlueprintCallable, Category = "Flitmark")
	void Seek(FTimespan Time);

	/** Removes the comments now on the screen; later ones still appear. For a canvas that has shrunk a lot. */
	UFUNCTION(BlueprintCallable, Category = "Flitmark")
	void ClearComments();

	/** Shows or hides the comments, as the bar's check box does. */
	UFUNCTION(BlueprintCallable, Category = "Flitmark")
	void SetCommentsVisible(bool bInVisible);

	UFUNCTION(BlueprintPure, Category = "Flitmark")
	bool AreCommentsVisible() const;

	/** For storing or forwarding comments; the viewer's own is already on the screen. */
	UPROPERTY(BlueprintAssignable, Category = "Flitmark")
	FOnFlitmarkCommentSent OnCommentSent;

	/** What the widget is made of, unless a blueprint provides a tree. Without a class there is no bar, or no panel. */
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
	/** Releases the previous media player first, so that nothing is subscribed twice. */
	void Disconnect();
	void Connect();
	void ShowVideo(UMediaTexture* InMediaTexture);

	/** Whether the overlay is laid out and connected, so that it accepts documents. */
	bool HasLanes() const;
	/** Passes on to the overlay what was held back. */
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

	/** A document that the overlay does not accept yet. */
	FString HeldDocument;
	bool bHoldsDocument = false;
	bool bIsPaused = false;
	/** Whether the overlay already knows if it is paused. */
	bool bHasLanes = false;
};
