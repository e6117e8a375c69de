#include "LayerFixture.h"

namespace
{

DECLARE_MULTICAST_DELEGATE(FPlainEvent);
DECLARE_MULTICAST_DELEGATE_OneParam(FNumberEvent, int32);
DECLARE_DYNAMIC_MULTICAST_DELEGATE(FDynamicPlainEvent);

class FDelegates : public FLayerFixture
{
protected:
	FDelegates()
		: A(MakeKept<UTestListener>(TEXT("A")))
		, B(MakeKept<UTestListener>(TEXT("B")))
		, C(MakeKept<UTestListener>(TEXT("C")))
	{
	}

	UTestListener* A;
	UTestListener* B;
	UTestListener* C;
};

TEST_F(FDelegates, NativeOnesCallInReverseAndKnowTheDead)
{
	FNumberEvent Event;
	EXPECT_FALSE(Event.IsBound());
	Event.AddUObject(A, &UTestListener::OnNumber);
	const FDelegateHandle Removed = Event.AddUObject(B, &UTestListener::OnNumber);
	Event.AddUObject(C, &UTestListener::OnNumber);
	Event.Broadcast(1);
	EXPECT_EQ(LayerTest::TakeLog(), (FLog{"C:1", "B:1", "A:1"}));
	EXPECT_TRUE(Event.Remove(Removed));
	EXPECT_FALSE(Event.Remove(Removed));
	C->ConditionalBeginDestroy();
	LayerTest::TakeLog();
	Event.Broadcast(2);
	EXPECT_EQ(LayerTest::TakeLog(), FLog{"A:2"});
	A->ConditionalBeginDestroy();
	EXPECT_FALSE(Event.IsBound());
}

TEST_F(FDelegates, NativeOnesStandSubscribingAndUnsubscribingInside)
{
	FPlainEvent Event;
	FDelegateHandle HandleA = Event.AddUObject(A, &UTestListener::OnPlain);
	Event.AddUObject(B, &UTestListener::OnPlain);
	Event.AddUObject(C, &UTestListener::OnPlain);
	C->Reaction = [&]
	{
		C->Reaction = nullptr;
		Event.Remove(HandleA);
		for (int32 Index = 0; Index < 20; ++Index)
		{
			HandleA = Event.AddUObject(A, &UTestListener::OnPlain);
		}
		B->ConditionalBeginDestroy();
	};
	Event.Broadcast();
	EXPECT_EQ(LayerTest::TakeLog(), (FLog{"C:plain", "B:destroy"}));
	Event.Broadcast();
	FLog Expected(20, "A:plain");
	Expected.push_back("C:plain");
	EXPECT_EQ(LayerTest::TakeLog(), Expected);
}

TEST_F(FDelegates, NativeOnesStandABroadcastInsideABroadcast)
{
	FPlainEvent Event;
	Event.AddUObject(A, &UTestListener::OnPlain);
	const FDelegateHandle HandleB = Event.AddUObject(B, &UTestListener::OnPlain);
	Event.AddUObject(C, &UTestListener::OnPlain);
	C->Reaction = [&]
	{
		C->Reaction = nullptr;
		Event.Remove(HandleB);
		Event.Broadcast();
	};
	Event.Broadcast();
	EXPECT_EQ(LayerTest::TakeLog(), (FLog{"C:plain", "C:plain", "A:plain", "A:plain"}));
}

TEST_F(FDelegates, DynamicOnesCallForwardByFunctionName)
{
	FDynamicPlainEvent Event;
	Event.AddDynamic(A, &UTestListener::OnPlain);
	Event.AddDynamic(B, &UTestListener::OnPlain);
	Event.AddUniqueDynamic(A, &UTestListener::OnPlain);
	Event.Add(C, TEXT("NoSuchFunction"));
	Event.Broadcast();
	EXPECT_EQ(LayerTest::TakeLog(), (FLog{"A:plain", "B:plain"}));
	Event.AddDynamic(A, &UTestListener::OnPlain);
	Event.Broadcast();
	EXPECT_EQ(LayerTest::TakeLog(), (FLog{"A:plain", "B:plain", "A:plain"})) << "added twice, called twice";
	Event.RemoveDynamic(A, &UTestListener::OnPlain);
	B->ConditionalBeginDestroy();
	LayerTest::TakeLog();
	Event.Broadcast();
	EXPECT_EQ(LayerTest::TakeLog(), FLog{});
}

TEST_F(FDelegates, DynamicOnesCallThoseWhoWereThereWhenTheBroadcastBegan)
{
	FDynamicPlainEvent Event;
	Event.AddDynamic(A, &UTestListener::OnPlain);
	Event.AddDynamic(B, &UTestListener::OnPlain);
	A->Reaction = [&]
	{
		Event.AddUniqueDynamic(C, &UTestListener::OnPlain);
		Event.RemoveDynamic(B, &UTestListener::OnPlain);
	};
	Event.Broadcast();
	Event.Broadcast();
	EXPECT_EQ(LayerTest::TakeLog(), (FLog{"A:plain", "B:plain", "A:plain", "C:plain"}));
}

} // namespace
