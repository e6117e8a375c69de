#include "Playback/PlaybackState.h"

#include <gtest/gtest.h>

#include <string>

namespace Flitmark
{

namespace
{

/** The whole state, one letter per flag, uppercase if it is set. */
std::string Describe(const FPlaybackState& InState)
{
	const auto Letter = [](bool bInHolds, char InLetter)
	{
		return static_cast<char>(bInHolds ? InLetter - 'a' + 'A' : InLetter);
	};
	return {Letter(InState.IsOpen(), 'o'),	  Letter(InState.IsLoaded(), 'l'), Letter(InState.IsPlaying(), 'p'),
			Letter(InState.IsWaiting(), 'w'), Letter(InState.HasEnded(), 'e'), Letter(InState.IsRunning(), 'r')};
}

FMpvState MakeMpvState(bool bInLoaded, bool bInBuffering = false, bool bInSeeking = false, bool bInEnded = false)
{
	FMpvState State;
	State.bLoaded = bInLoaded;
	State.bBuffering = bInBuffering;
	State.bSeeking = bInSeeking;
	State.bEnded = bInEnded;
	return State;
}

TEST(PlaybackStateTest, FollowsLibmpvAndTheViewer)
{
	struct FCase
	{
		FMpvState Mpv;
		const char* Playing;
		const char* Paused;
	};
	const FCase Cases[] = {
		{MakeMpvState(false), "OlPWer", "OlpWer"},
		{MakeMpvState(true), "OLPweR", "OLpwer"},
		{MakeMpvState(true, true), "OLPWer", "OLpWer"},
		{MakeMpvState(true, false, true), "OLPWer", "OLpWer"},
		{MakeMpvState(true, false, false, true), "OLpwEr", "OLpwEr"},
		// Leaving the end: it plays on as soon as the seek has finished.
		{MakeMpvState(true, false, true, true), "OLPWer", "OLpWer"},
	};
	for (const FCase& Case : Cases)
	{
		FPlaybackState State;
		State.Open();
		State.Follow(Case.Mpv);
		EXPECT_EQ(Describe(State), Case.Playing) << &Case - Cases;
		State.SetPlaying(false);
		EXPECT_EQ(Describe(State), Case.Paused) << &Case - Cases;
	}
}

TEST(PlaybackStateTest, ClosedIsDeafAndOpeningPlays)
{
	FPlaybackState State;
	State.Follow(MakeMpvState(true));
	EXPECT_EQ(Describe(State), "olpwer");
	State.Open();
	State.Follow(MakeMpvState(true));
	State.SetPlaying(false);
	State.Close();
	State.Follow(MakeMpvState(true));
	EXPECT_EQ(Describe(State), "olpwer");
	State.Open();
	EXPECT_EQ(Describe(State), "OlPWer");
}

TEST(PlaybackStateTest, APauseWhileOpeningOrWaitingIsKept)
{
	FPlaybackState State;
	State.Open();
	State.SetPlaying(false);
	State.Follow(MakeMpvState(true, true));
	State.Follow(MakeMpvState(true));
	EXPECT_EQ(Describe(State), "OLpwer");
	State.SetPlaying(true);
	EXPECT_EQ(Describe(State), "OLPweR");
}

} // namespace

} // namespace Flitmark
