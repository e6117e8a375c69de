#pragma once

#include "CoreTypes.h"
#include "Mpv/MpvState.h"

namespace Flitmark
{

/**
 * The one state of playing: how far along the media is, and whether the viewer wants it to run. Whatever pauses, waits or
 * moves is derived from these two.
 */
class FPlaybackState
{
public:
	/** Something is opened, and is to play. */
	void Open();
	void Close();
	/** What the viewer wants; kept while the media opens, waits for data or stands at the end. */
	void SetPlaying(bool bInPlaying) { bPlayWanted = bInPlaying; }
	/** Takes over how far libmpv is; means nothing while nothing is open. */
	void Follow(const FMpvState& InMpv);

	bool IsOpen() const { return Phase != EPhase::Closed; }
	/** Length and size are known. */
	bool IsLoaded() const { return Phase > EPhase::Opening; }
	/** Neither paused nor at the end; also while it waits. */
	bool IsPlaying() const { return IsOpen() && bPlayWanted && !HasEnded(); }
	/** For the media to open, for data, or for the end of a seek. */
	bool IsWaiting() const { return Phase == EPhase::Opening || Phase == EPhase::Waiting; }
	bool HasEnded() const { return Phase == EPhase::Ended; }
	/** Media time advances, and the comments with it. */
	bool IsRunning() const { return Phase == EPhase::Ready && bPlayWanted; }

private:
	/** In this order, see IsLoaded. */
	enum class EPhase : uint8
	{
		Closed,
		Opening,
		Waiting,
		Ready,
		Ended
	};

	EPhase Phase = EPhase::Closed;
	bool bPlayWanted = true;
};

} // namespace Flitmark
