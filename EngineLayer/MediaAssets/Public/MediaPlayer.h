#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"
#include "UObject/ScriptDelegates.h"

/**
 * What a host's player reports, and what it can be asked to do. Must outlive the media player that reads it, or be
 * removed from it first.
 */
class ENGINELAYER_API IMediaSource
{
public:
	virtual ~IMediaSource() = default;

	virtual FTimespan GetTime() const = 0;
	virtual bool IsPlaying() const = 0;
	virtual const FString& GetUrl() const = 0;

	/** Each returns false if the source can't, or if it does so already. */
	virtual bool Play() { return false; }
	virtual bool Pause() { return false; }
	virtual bool Seek([[maybe_unused]] const FTimespan& Time) { return false; }
};

DECLARE_DYNAMIC_MULTICAST_DELEGATE(FOnMediaPlayerMediaEvent);

/** The media player as the module sees it: it reads the host's player. Without one: time 0, not playing, no URL. */
class ENGINELAYER_API UMediaPlayer : public UObject
{
	DECLARE_LAYER_CLASS(UMediaPlayer, UObject)

public:
	explicit UMediaPlayer(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	FOnMediaPlayerMediaEvent OnPlaybackResumed;
	FOnMediaPlayerMediaEvent OnPlaybackSuspended;
	FOnMediaPlayerMediaEvent OnSeekCompleted;

	void SetSource(IMediaSource* InSource) { Source = InSource; }

	FTimespan GetTime() const;
	bool IsPlaying() const;
	const FString& GetUrl() const;

	/** False if it can't be done, or is so already; otherwise raises the event. */
	bool Play();
	bool Pause();
	bool Seek(const FTimespan& Time);

private:
	IMediaSource* Source = nullptr;
};
