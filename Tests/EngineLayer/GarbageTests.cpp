#include "LayerFixture.h"

#include <algorithm>

namespace
{

class FGarbage : public FLayerFixture
{
protected:
	static UTestListener* Make(const TCHAR* Name, UObject* Outer = GetTransientPackage())
	{
		return NewObject<UTestListener>(Outer, UTestListener::StaticClass(), Name);
	}
	/** The destroyed objects, by name. */
	static FLog Collect(EObjectFlags KeepFlags = RF_NoFlags)
	{
		LayerTest::TakeLog();
		CollectGarbage(KeepFlags);
		FLog Log = LayerTest::TakeLog();
		std::ranges::sort(Log);
		return Log;
	}
};

TEST_F(FGarbage, SparesWhatRootsReach)
{
	UTestListener* Root = MakeKept<UTestListener>(TEXT("Root"));
	Root->Held = Make(TEXT("A"));
	UTestListener* Listed = Make(TEXT("B"));
	Root->HeldList.Add(Make(TEXT("C")));
	Root->HeldList.Add(nullptr);
	Root->HeldList.Add(Listed);
	UTestListener* Outer = Make(TEXT("D"));
	Listed->Held = Make(TEXT("E"), Outer);
	Make(TEXT("F"), Root);
	EXPECT_EQ(Collect(), FLog{"F:destroy"}) << "an outer is kept by what is in it, not the other way round";
	EXPECT_EQ(CountObjects(UTestListener::StaticClass()), 6);
	Root->HeldList.RemoveAt(2);
	EXPECT_EQ(Collect(), (FLog{"B:destroy", "D:destroy", "E:destroy"}));
	Release(Root);
	EXPECT_EQ(Collect(), (FLog{"A:destroy", "C:destroy", "ROOT:destroy"}));
}

TEST_F(FGarbage, TakesCyclesAndBeginsDestructionOnce)
{
	UTestListener* A = Make(TEXT("A"));
	UTestListener* B = Make(TEXT("B"), A);
	A->Held = B;
	B->HeldList.Add(A);
	B->HeldList.Add(B);
	EXPECT_TRUE(B->ConditionalBeginDestroy());
	EXPECT_FALSE(B->ConditionalBeginDestroy());
	EXPECT_FALSE(IsValid(B));
	EXPECT_EQ(LayerTest::TakeLog(), FLog{"B:destroy"});
	EXPECT_EQ(Collect(), FLog{"A:destroy"});
	EXPECT_EQ(CountObjects(UTestListener::StaticClass()), 0);
}

TEST_F(FGarbage, AnObjectMayLookAtAnotherWhileBothGo)
{
	UTestListener* A = Make(TEXT("A"));
	UTestListener* B = Make(TEXT("B"));
	A->Held = B;
	B->Held = A;
	A->Dying = [B]
	{
		LayerTest::GetLog().push_back("sees " + LayerTest::NameOf(*B));
	};
	B->Dying = [A]
	{
		LayerTest::GetLog().push_back("sees " + LayerTest::NameOf(*A));
	};
	EXPECT_EQ(Collect(), (FLog{"A:destroy", "B:destroy", "sees A", "sees B"}));
}

TEST_F(FGarbage, WeakPointersKnowTheDeadAlsoWhenTheSlotIsUsedAgain)
{
	UTestListener* A = Make(TEXT("A"));
	const TWeakObjectPtr<UTestListener> Weak(A);
	const TWeakObjectPtr<UTestListener> Dying(MakeKept<UTestListener>(TEXT("B")));
	Dying->ConditionalBeginDestroy();
	EXPECT_FALSE(Dying.IsValid()) << "not freed yet, but on its way";
	EXPECT_EQ(Weak.Get(), A);
	CollectGarbage();
	EXPECT_FALSE(Weak.IsValid());
	for (int32 Index = 0; Index < 100; ++Index)
	{
		Make(TEXT("New"));
	}
	EXPECT_FALSE(Weak.IsValid());
	EXPECT_FALSE(TWeakObjectPtr<UTestListener>().IsValid());
}

TEST_F(FGarbage, HoldersAndFlagsKeepObjects)
{
	class FHolder final : public FGCObject
	{
	public:
		void AddReferencedObjects(FReferenceCollector& Collector) override { Collector.AddReferencedObject(Object); }
		UObject* Object = nullptr;
	};
	{
		FHolder Holder;
		Holder.Object = Make(TEXT("A"));
		NewObject<UTestListener>(GetTransientPackage(), UTestListener::StaticClass(), TEXT("B"), RF_Standalone);
		EXPECT_EQ(Collect(RF_Standalone), FLog{});
		EXPECT_EQ(Collect(), FLog{"B:destroy"});
	}
	EXPECT_EQ(Collect(), FLog{"A:destroy"});
}

TEST_F(FGarbage, ObjectsMadeWhileOthersGoAreForTheNextTime)
{
	UTestListener* A = Make(TEXT("A"));
	A->Dying = []
	{
		Make(TEXT("B"));
	};
	EXPECT_EQ(Collect(), FLog{"A:destroy"});
	EXPECT_EQ(Collect(), FLog{"B:destroy"});
}

} // namespace
