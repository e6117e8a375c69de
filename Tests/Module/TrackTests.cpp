#include "StageFixture.h"

#include <cmath>
#include <limits>

namespace Flitmark
{

namespace
{

constexpr double Infinite = std::numeric_limits<double>::infinity();

struct FRoll
{
	double Distance;
	int Draw;
};

class FTracks : public FStageFixture
{
protected:
	FTracks()
		: Track(MakeTrack())
	{
	}

	UDanmakuTrack* MakeTrack() { return Keep(NewObject<UDanmakuTrack>(GetManager())); }

	/**
	 * A distance of at least the width that takes a whole number of seconds at that speed, and the draw that yields it.
	 */
	static FRoll FindRoll(double Width, double Speed)
	{
		if (Speed == Infinite)
		{
			// Too short for a whole second.
			return {150.0, LongDraw};
		}
		for (int32 Seconds = 1; Seconds < 100; ++Seconds)
		{
			const double Distance = Speed * Seconds;
			for (const auto& [Draw, TimePerUnit] : {std::pair(LongDraw, 0.0058), std::pair(ShortDraw, 0.7 * 0.0058)})
			{
				if (Distance >= Width && std::floor(Distance * TimePerUnit) == Seconds)
				{
					return {Distance, Draw};
				}
			}
		}
		ADD_FAILURE() << "no way has the speed " << Speed;
		return {Speed, LongDraw};
	}

	/**
	 * A comment of the given width and speed on the 1920-wide canvas. To get that speed, it starts on another canvas,
	 * wide enough for its display time to be a whole number of seconds.
	 */
	UUI_DanmakuNode* MakeRolling(double Width, double Speed)
	{
		const FRoll Roll = FindRoll(Width, Speed);
		Stage->GetOverlay().Arrange(FVector2f(static_cast<float>(Roll.Distance - Width), 1080.f));
		Rand.Give({Roll.Draw});
		UUI_DanmakuNode* Node = MakeNode(MakeData((std::to_string(Width) + "x20").c_str()));
		Stage->GetOverlay().Arrange(FVector2f(1920.f, 1080.f));
		EXPECT_EQ(Node->GetRollSpeed(), static_cast<float>(Speed));
		return Node;
	}
	UUI_DanmakuNode* MakeRollingAt(double Width, double Speed, double X)
	{
		UUI_DanmakuNode* Node = MakeRolling(Width, Speed);
		Node->SetPosition(FVector2D(X, 0.0));
		return Node;
	}

	UDanmakuTrack* Track;
};

TEST_F(FTracks, TakeAScrollingCommentThatCannotCatchUpInView)
{
	const struct
	{
		double LastX;
		double LastSpeed;
		double NewSpeed;
		bool bTaken;
		const char* Why;
	} Cases[] = {
		{1330.0, 180.0, 240.0, true, "catches up after 8.167 s, the last is out of view after 7.944 s"},
		{1500.0, 180.0, 240.0, false, "catches up after 5.333 s, the last is out of view after 8.889 s"},
		{1340.0, 180.0, 240.0, false, "both after exactly 8 s"},
		{1339.99, 180.0, 240.0, true, "just before"},
		{1340.01, 180.0, 240.0, false, "just behind"},
		{1820.0, 180.0, 180.0, false, "touches the right edge"},
		{1820.0, 240.0, 180.0, false, "touches the right edge, and flees"},
		{1900.0, 240.0, 180.0, false, "overhangs the right edge"},
		{1819.999999, 180.0, 180.0, false, "a gap that single precision does not know"},
		{1819.9, 180.0, 180.0, true, "a gap behind it, and as fast"},
		{1819.9, 240.0, 180.0, true, "a gap behind it, and faster"},
		{1819.9, 180.0, 181.0, false, "a gap behind it, and a little slower"},
		{-99.0, 180.0, 400.0, true, "a last unit in view"},
		{-100.0, 180.0, 400.0, true, "just out of view"},
		{-300.0, 180.0, 400.0, true, "long out of view"},
		{1819.9, Infinite, 400.0, true, "without display time nothing catches up with it"},
		{-99.0, 180.0, Infinite, false, "without display time it catches up at once"},
		{-101.0, 180.0, Infinite, true, "without display time, behind one that is out of view"},
	};
	for (const auto& Case : Cases)
	{
		UDanmakuTrack* Lane = MakeTrack();
		Lane->AddNode(MakeRollingAt(100.0, Case.LastSpeed, Case.LastX));
		EXPECT_EQ(Lane->CanAddNode(MakeRolling(140.0, Case.NewSpeed)), Case.bTaken) << Case.Why;
	}
}

TEST_F(FTracks, LookOnlyAtTheLastComment)
{
	UUI_DanmakuNode* Newcomer = MakeRolling(100.0, 240.0);
	EXPECT_TRUE(Track->CanAddNode(Newcomer));
	Track->AddNode(MakeRollingAt(100.0, 180.0, 1900.0));
	EXPECT_FALSE(Track->CanAddNode(Newcomer));
	Track->AddNode(MakeRollingAt(100.0, 180.0, 300.0));
	EXPECT_TRUE(Track->CanAddNode(Newcomer));
	Track->AddNode(MakeRollingAt(100.0, 180.0, 1900.0));
	EXPECT_FALSE(Track->CanAddNode(Newcomer));
}

TEST_F(FTracks, HoldOneStandingCommentAtATime)
{
	for (const EDanmakuMode Mode : {EDanmakuMode::TOP, EDanmakuMode::BOTTOM})
	{
		UDanmakuTrack* Lane = MakeTrack();
		UUI_DanmakuNode* Newcomer = MakeNode(MakeData("50x20", Mode));
		EXPECT_TRUE(Lane->CanAddNode(Newcomer));
		UUI_DanmakuNode* Standing = MakeNode(MakeData("50x20", Mode));
		Lane->AddNode(Standing);
		EXPECT_FALSE(Lane->CanAddNode(Newcomer));
		Lane->RemoveNode(Standing);
		EXPECT_TRUE(Lane->CanAddNode(Newcomer));
	}
}

TEST_F(FTracks, TakeNoOtherMode)
{
	for (const int32 Mode : {3, 4, -1, MAX_int32, MIN_int32})
	{
		EXPECT_FALSE(Track->CanAddNode(MakeNode(MakeData("50x20", static_cast<EDanmakuMode>(Mode))))) << Mode;
	}
}

TEST_F(FTracks, ForgetACommentAtItsEndHoweverOftenTheyListIt)
{
	UDanmakuTrack* Others[] = {MakeTrack(), MakeTrack()};
	Rand.GiveAlways(ShortDraw);
	for (const bool bEnds : {true, false})
	{
		UUI_DanmakuNode* Stays = MakeNode(MakeData("5000x20"));
		UUI_DanmakuNode* Goes = MakeNode(MakeData("100x20"));
		for (UDanmakuTrack* Lane : {Track, Others[0], Others[1], Track})
		{
			Lane->AddNode(Goes);
			Lane->AddNode(Stays);
		}
		if (bEnds)
		{
			RunFrames(9, 1.f);
		}
		else
		{
			Goes->RemoveFromParent();
		}
		EXPECT_EQ(GetNodes(Track), (std::vector{Stays, Stays}));
		EXPECT_EQ(GetNodes(Others[0]), std::vector{Stays});
		EXPECT_EQ(GetNodes(Others[1]), std::vector{Stays});
		Track->Empty();
		EXPECT_TRUE(GetNodes(Others[0]).empty()) << "taken off the canvas, it leaves every lane";
	}
}

TEST_F(FTracks, UseTheNewcomersCanvasWhereTheLastCommentHasJustLeftIt)
{
	// Between the comment leaving the canvas and the lane noticing.
	struct FProbe
	{
		void OnEnded(UUI_DanmakuNode* Node)
		{
			EXPECT_EQ(Node->GetParent(), nullptr);
			bTaken = Track->CanAddNode(Newcomer);
		}
		UDanmakuTrack* Track;
		UUI_DanmakuNode* Newcomer;
		bool bTaken;
	};
	for (const bool bInView : {true, false})
	{
		UUI_DanmakuNode* Last = MakeRollingAt(100.0, 180.0, 0.0);
		FProbe Probe{Track, MakeRolling(100.0, 180.0), bInView};
		Track->AddNode(Last);
		Last->OnEnded.AddRaw(&Probe, &FProbe::OnEnded);
		Last->SetPosition(FVector2D(bInView ? 1900.0 : 0.0, 0.0));
		RunFrames(1, 60.f);
		EXPECT_EQ(Probe.bTaken, !bInView);
		EXPECT_TRUE(GetNodes(Track).empty());
	}
}

TEST_F(FTracks, TakeTheirCommentsOffTheCanvas)
{
	UUI_DanmakuNode* Own[] = {MakeNode(MakeData("10x20")), MakeNode(MakeData("20x20"))};
	UUI_DanmakuNode* Other = MakeNode(MakeData("30x20"));
	Track->AddNode(Own[0]);
	Track->AddNode(Own[1]);
	Track->Empty();
	EXPECT_TRUE(GetNodes(Track).empty());
	EXPECT_EQ(GetShown(), std::vector{Other});
	EXPECT_EQ(Log.TakeEvents(), (std::vector<std::string>{"left 1", "canceled 1", "left 2", "canceled 2"}));
}

TEST_F(FTracks, PauseAndResumeWhatTheyHold)
{
	UUI_DanmakuNode* Held = MakeNode(MakeData("10x20"));
	UUI_DanmakuNode* Free = MakeNode(MakeData("10x20"));
	Track->AddNode(Held);
	Track->Pause();
	UUI_DanmakuNode* Later = MakeNode(MakeData("10x20"));
	Track->AddNode(Later);
	EXPECT_TRUE(Held->IsPaused());
	EXPECT_FALSE(Free->IsPaused());
	EXPECT_FALSE(Later->IsPaused()) << "a lane has no paused state of its own";
	Track->Resume();
	EXPECT_FALSE(Held->IsPaused());
}

TEST_F(FTracks, HaveOneTimerUntilTheirEnd)
{
	const int32 NumTimers = GetTimers().Num();
	UDanmakuTrack* Lane = MakeTrack();
	UUI_DanmakuNode* Node = MakeNode(MakeData("10x20"));
	Lane->AddNode(Node);
	EXPECT_EQ(GetTimers().Num(), NumTimers + 1);
	RunFrames(3, 0.5f);
	EXPECT_EQ(GetTimers().Num(), NumTimers + 1) << "it loops";
	Lane->ConditionalBeginDestroy();
	EXPECT_EQ(GetTimers().Num(), NumTimers);
	EXPECT_TRUE(GetNodes(Lane).empty());
	EXPECT_EQ(Node->GetParent(), &Stage->GetCanvas()) << "a lane's end takes nothing off the canvas";
	EXPECT_NE(UDanmakuTrack::StaticClass()->GetDefaultObject(), nullptr) << "no world: no timer to set";
}

} // namespace

} // namespace Flitmark
