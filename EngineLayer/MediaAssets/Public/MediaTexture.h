#pragma once

#include "Engine/Texture.h"

class UMediaPlayer;

/** The picture that a media player plays. */
class ENGINELAYER_API UMediaTexture : public UTexture
{
	DECLARE_LAYER_CLASS(UMediaTexture, UTexture)

public:
	explicit UMediaTexture(const FObjectInitializer& ObjectInitializer)
		: Super(ObjectInitializer)
	{
	}

	void SetMediaPlayer(UMediaPlayer* NewMediaPlayer) { MediaPlayer = NewMediaPlayer; }
	UMediaPlayer* GetMediaPlayer() const { return MediaPlayer; }

	void VisitReferences(FReferenceCollector& Collector) override;

private:
	TObjectPtr<UMediaPlayer> MediaPlayer;
};
