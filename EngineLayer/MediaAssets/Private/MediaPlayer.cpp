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
