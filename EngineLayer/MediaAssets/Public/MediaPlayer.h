#pragma once

#include "CoreMinimal.h"
#include "UObject/Object.h"

/** What a host's player tells of itself. Outlives the media player that reads it, or is taken away from it before. */
class ENGINELAYER_API IMediaSource
{
public:
	virtual ~IMediaSource() = default;

	virtual FTimespan GetTime() const = 0;
	virtual bool IsPlaying() const = 0;
	virtual const FString& GetUrl() const = 0;
};

/** The media player as the module sees it: it reads the host's. Without one: time 0, not playing, no URL. */
class ENGINELAYER_API UMediaPlayer : public UObject
{
	DECLARE_LAYER_CLASS(UMediaPlayer, UObject)

public:
	explicit UMediaPlayer(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	void SetSource(const IMediaSource* InSource) { Source = InSource; }

	FTimespan GetTime() const;
	bool IsPlaying() const;
	const FString& GetUrl() const;

private:
	const IMediaSource* Source = nullptr;
};
