#include "MediaPlayer.h"

#include "UObject/GeneratedCppIncludes.h"

IMPLEMENT_LAYER_CLASS(UMediaPlayer, "MediaPlayer")

FTimespan UMediaPlayer::GetTime() const
{
	return Source != nullptr ? Source->GetTime() : FTimespan::Zero();
}

bool UMediaPlayer::IsPlaying() const
{
	return Source != nullptr && Source->IsPlaying();
}

const FString& UMediaPlayer::GetUrl() const
{
	static const FString None;
	return Source != nullptr ? Source->GetUrl() : None;
}

bool UMediaPlayer::Play()
{
	const bool bDone = Source != nullptr && Source->Play();
	if (bDone)
	{
		OnPlaybackResumed.Broadcast();
	}
	return bDone;
}

bool UMediaPlayer::Pause()
{
	const bool bDone = Source != nullptr && Source->Pause();
	if (bDone)
	{
		OnPlaybackSuspended.Broadcast();
	}
	return bDone;
}

bool UMediaPlayer::Seek(const FTimespan& Time)
{
	const bool bDone = Source != nullptr && Source->Seek(Time);
	if (bDone)
	{
		OnSeekCompleted.Broadcast();
	}
	return bDone;
}
