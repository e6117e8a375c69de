#include "Playback/PlaybackState.h"

namespace Flitmark
{

void FPlaybackState::Open()
{
	Phase = EPhase::Opening;
	bPlayWanted = true;
}

void FPlaybackState::Close()
{
	Phase = EPhase::Closed;
}

void FPlaybackState::Follow(const FMpvState& InMpv)
{
	if (IsOpen())
	{
		Phase = !InMpv.bLoaded						 ? EPhase::Opening
				: InMpv.bBuffering || InMpv.bSeeking ? EPhase::Waiting
				: InMpv.bEnded						 ? EPhase::Ended
													 : EPhase::Ready;
	}
}

} // namespace Flitmark
