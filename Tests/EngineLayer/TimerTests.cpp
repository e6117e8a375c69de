#include "LayerFixture.h"

#include "TimerManager.h"

namespace
{

class FTimers : public FLayerFixture
{
protected:
	FTimers()
		: Manager(World->GetTimerManager())
		, Listener(MakeKept<UTestListener>(TEXT("L")))
	{
	}

	/** The ticks in which the listener was called, each listed once per call. */
	std::vector<int32> Run(const std::vector<float>& Ticks)
	{
		std::vector<int32> Fired;
		for (std::size_t Tick = 0; Tick < Ticks.size(); ++Tick)
		{
			LayerTest::TakeLog();
			Manager.Tick(Ticks[Tick]);
			Fired.insert(Fired.end(), LayerTest::TakeLog().size(), static_cast<int32>(Tick));
		}
		return Fired;
	}

	FTimerManager& Manager;
	UTestListener* Listener;
	FTimerHandle Handle;
};

TEST_F(FTimers, FireInTheFirstFrameThatReachesTheirDelay)
{
	const struct
	{
		float Rate;
		bool bLoop;
		float FirstDelay;
		std::vector<float> Ticks;
		std::vector<int32> Fired;
	} Cases[] = {
		{0.75f, false, -1.f, {0.25f, 0.25f, 0.25f, 0.25f, 9.f}, {2}},
		{0.75f, false, -1.f, {0.25f, 0.25f, 0.1875f, 0.f, 0.0625f}, {4}},
		{0.5f, true, -1.f, {0.25f, 0.25f, 0.25f, 0.25f, 1.f}, {1, 3, 4, 4}},
		{0.5f, true, 0.f, {0.f, 0.25f, 0.25f}, {0, 2}},
		{0.5f, true, 1.f, {0.5f, 0.5f, 0.5f}, {1, 2}},
		{0.f, false, -1.f, {1.f}, {}},
		{-1.f, true, -1.f, {1.f}, {}},
		// Summed in double: ten float tenths are a little more than one.
		{1.f, false, -1.f, std::vector<float>(12, 0.1f), {9}},
		// 45 sixtieths as floats add up to a little more than 0.75 in double, but less in float.
		{0.75f, false, -1.f, std::vector<float>(47, 1.f / 60.f), {44}},
	};
	for (const auto& Case : Cases)
	{
		Manager.SetTimer(Handle, Listener, &UTestListener::OnPlain, Case.Rate, Case.bLoop, Case.FirstDelay);
		EXPECT_EQ(Manager.TimerExists(Handle), Case.Rate > 0.f);
		EXPECT_EQ(Run(Case.Ticks), Case.Fired) << Case.Rate;
		Manager.ClearTimer(Handle);
		EXPECT_EQ(Manager.Num(), 0);
	}
}

TEST_F(FTimers, ReplaceWhatTheirHandleHeld)
{
	Manager.SetTimer(Handle, Listener, &UTestListener::OnPlain, 0.75f);
	EXPECT_EQ(Run({0.5f}), std::vector<int32>{});
	Manager.SetTimer(Handle, Listener, &UTestListener::OnPlain, 0.75f);
	EXPECT_EQ(Manager.Num(), 1);
	EXPECT_EQ(Run({0.5f, 0.25f, 5.f}), std::vector<int32>{1});
	EXPECT_FALSE(Manager.TimerExists(Handle));
	Manager.SetTimer(Handle, Listener, &UTestListener::OnPlain, 0.75f);
	Manager.SetTimer(Handle, Listener, &UTestListener::OnPlain, 0.f);
	EXPECT_FALSE(Handle.IsValid()) << "a rate of 0 only clears";
	EXPECT_EQ(Run({9.f}), std::vector<int32>{});
}

TEST_F(FTimers, MayBeSetAndClearedInsideTheirCall)
{
	bool bExisted = false;
	FTimerHandle Other;
	Listener->Reaction = [&]
	{
		bExisted = Manager.TimerExists(Handle);
		Manager.ClearTimer(Other);
		for (int32 Index = 0; Index < 20; ++Index)
		{
			FTimerHandle New;
			Manager.SetTimer(New, Listener, &UTestListener::OnPlain, 1.f);
		}
		Manager.SetTimer(Handle, Listener, &UTestListener::OnPlain, 1.f);
		Listener->Reaction = nullptr;
	};
	Manager.SetTimer(Handle, Listener, &UTestListener::OnPlain, 1.f, true);
	Manager.SetTimer(Other, Listener, &UTestListener::OnPlain, 1.f);
	// The long frame spans three periods, but the first call replaces the timer.
	EXPECT_EQ(Run({3.f, 0.5f}), std::vector<int32>{0});
	EXPECT_TRUE(bExisted);
	EXPECT_EQ(Run({0.5f}).size(), 21u);
	EXPECT_EQ(Manager.Num(), 0);
}

TEST_F(FTimers, OfAnObjectEndWithIt)
{
	UTestListener* Dying = MakeKept<UTestListener>(TEXT("D"));
	FTimerHandle DyingHandle;
	Manager.SetTimer(Handle, Listener, &UTestListener::OnPlain, 0.5f, true);
	Manager.SetTimer(DyingHandle, Dying, &UTestListener::OnPlain, 0.5f, true);
	Dying->ConditionalBeginDestroy();
	EXPECT_EQ(Run({0.5f}).size(), 1u);
	EXPECT_FALSE(Manager.TimerExists(DyingHandle));
	FTimerHandle Second;
	Manager.SetTimer(Second, Listener, &UTestListener::OnPlain, 0.5f);
	Manager.ClearAllTimersForObject(Listener);
	EXPECT_EQ(Manager.Num(), 0);
	EXPECT_EQ(Run({9.f}), std::vector<int32>{});
}

TEST_F(FTimers, OfOneFrameFireInTheOrderInWhichTheyWereSet)
{
	std::vector<UTestListener*> Listeners;
	std::vector<FTimerHandle> Handles(4);
	for (std::size_t Index = 0; Index < Handles.size(); ++Index)
	{
		const TCHAR Name[] = {static_cast<TCHAR>(u'p' + Index), 0};
		Listeners.push_back(MakeKept<UTestListener>(Name));
		Manager.SetTimer(Handles[Index], Listeners.back(), &UTestListener::OnPlain,
						 1.f - 0.1f * static_cast<float>(Index));
	}
	// The third clears the fourth, which falls due in the same frame.
	Listeners[2]->Reaction = [&]
	{
		Manager.ClearTimer(Handles[3]);
	};
	Manager.SetTimer(Handles[1], Listeners[1], &UTestListener::OnPlain, 1.f);
	Manager.Tick(1.f);
	EXPECT_EQ(LayerTest::TakeLog(), (FLog{"P:plain", "R:plain", "Q:plain"}));
}

} // namespace
