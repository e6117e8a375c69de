#include "LayerFixture.h"

#include "Blueprint/WidgetBlueprintBuilder.h"
#include "Blueprint/WidgetObserver.h"

namespace
{

/** A screen with a canvas, to which widgets are added by name. */
class FWidgets : public FLayerFixture
{
protected:
	FWidgets()
	{
		std::string Error;
		FWidgetBlueprintBuilder Builder(TEXT("WBP_Screen"), UTestWidget::StaticClass());
		Blueprint = Builder.Add(UCanvasPanel::StaticClass(), TEXT("Canvas")).Build(Error);
		Screen = CreateWidget<UTestWidget>(World, Blueprint.get(), TEXT("S"));
		Keep(Screen);
		Canvas = Cast<UCanvasPanel>(Screen->GetRootWidget());
	}

	UTestWidget* Make(const TCHAR* Name)
	{
		UTestWidget* Made = CreateWidget<UTestWidget>(Screen, Blueprint.get(), Name);
		Keep(Made);
		LayerTest::TakeLog();
		return Made;
	}
	UTestWidget* Put(const TCHAR* Name)
	{
		UTestWidget* Made = Make(Name);
		Canvas->AddChildToCanvas(Made);
		return Made;
	}
	void Display()
	{
		Screen->ConstructTree();
		LayerTest::TakeLog();
	}
	static UPanelWidget* Inside(const UTestWidget* Widget) { return Cast<UPanelWidget>(Widget->GetRootWidget()); }
	FLog Tick()
	{
		LayerTest::TakeLog();
		FWidgetTeardown::Get().TickTree(*Screen, 0.1f);
		FLog Log = LayerTest::TakeLog();
		FWidgetTeardown::Get().TearDownLeft();
		return Log;
	}

	std::unique_ptr<UWidgetBlueprintGeneratedClass> Blueprint;
	UTestWidget* Screen;
	UCanvasPanel* Canvas;
};

TEST_F(FWidgets, AreConstructedWhenTheyJoinADisplayedTree)
{
	UTestWidget* A = Put(TEXT("A"));
	Inside(A)->AddChild(Make(TEXT("B")));
	EXPECT_EQ(LayerTest::TakeLog(), FLog{}) << "the screen is not displayed yet";
	Screen->ConstructTree();
	EXPECT_EQ(LayerTest::TakeLog(), (FLog{"B:preconstruct", "B:construct", "A:preconstruct", "A:construct",
										  "S:preconstruct", "S:construct"}));
	Put(TEXT("C"));
	EXPECT_EQ(LayerTest::TakeLog(), (FLog{"C:preconstruct", "C:construct"}));
	A->RemoveFromParent();
	EXPECT_EQ(LayerTest::TakeLog(), (FLog{"A:destruct", "B:destruct"})) << "outside a pass: at once";
	A->RemoveFromParent();
	EXPECT_EQ(LayerTest::TakeLog(), FLog{});
	Canvas->AddChild(A);
	EXPECT_EQ(LayerTest::TakeLog(), (FLog{"B:preconstruct", "B:construct", "A:preconstruct", "A:construct"}));
}

TEST_F(FWidgets, TickParentsFirstAndChildrenAsTheyJoined)
{
	UTestWidget* A = Put(TEXT("A"));
	UTestWidget* B = Put(TEXT("B"));
	Inside(A)->AddChild(Make(TEXT("I")));
	Display();
	EXPECT_EQ(Tick(), (FLog{"S:tick", "A:tick", "I:tick", "B:tick"}));
	A->SetVisibility(ESlateVisibility::Hidden);
	EXPECT_EQ(Tick(), (FLog{"S:tick", "B:tick"}));
	A->SetVisibility(ESlateVisibility::SelfHitTestInvisible);
	B->SetVisibility(ESlateVisibility::Collapsed);
	EXPECT_EQ(Tick(), (FLog{"S:tick", "A:tick", "I:tick"}));
	Canvas->AddChild(A);
	B->SetVisibility(ESlateVisibility::HitTestInvisible);
	EXPECT_EQ(Tick(), (FLog{"S:tick", "B:tick", "A:tick", "I:tick"})) << "putting it in again makes it the last";
	Canvas->SetVisibility(ESlateVisibility::Hidden);
	EXPECT_EQ(Tick(), FLog{"S:tick"});
}

TEST_F(FWidgets, MayLeaveAndJoinDuringThePass)
{
	UTestWidget* A = Put(TEXT("A"));
	UTestWidget* B = Put(TEXT("B"));
	UTestWidget* C = Put(TEXT("C"));
	UTestWidget* D = Put(TEXT("D"));
	UTestWidget* E = Make(TEXT("E"));
	Display();
	B->Ticked = [&]
	{
		B->Ticked = nullptr;
		A->RemoveFromParent();
		B->RemoveFromParent();
		C->RemoveFromParent();
		Canvas->AddChild(E);
	};
	FWidgetTeardown::Get().TickTree(*Screen, 0.1f);
	EXPECT_EQ(LayerTest::TakeLog(),
			  (FLog{"S:tick", "A:tick", "B:tick", "E:preconstruct", "E:construct", "D:tick", "E:tick"}));
	EXPECT_EQ(FWidgetTeardown::Get().TearDownLeft(), 3);
	EXPECT_EQ(LayerTest::TakeLog(), (FLog{"A:destruct", "B:destruct", "C:destruct"})) << "as they left";
	EXPECT_EQ(FWidgetTeardown::Get().TearDownLeft(), 0);
	EXPECT_EQ(Tick(), (FLog{"S:tick", "D:tick", "E:tick"}));
	D->Ticked = [&]
	{
		D->Ticked = nullptr;
		D->RemoveFromParent();
		Canvas->AddChild(D);
	};
	EXPECT_EQ(Tick(), (FLog{"S:tick", "D:tick", "E:tick", "D:tick"})) << "joined anew behind the pass's place";
	EXPECT_TRUE(D->IsConstructed());
}

TEST_F(FWidgets, WhatIsInsideAWidgetThatLeftInItsTickIsNotTicked)
{
	UTestWidget* A = Put(TEXT("A"));
	Inside(A)->AddChild(Make(TEXT("I")));
	Put(TEXT("B"));
	Display();
	A->Ticked = [A]
	{
		A->RemoveFromParent();
	};
	EXPECT_EQ(Tick(), (FLog{"S:tick", "A:tick", "B:tick"}));
}

TEST_F(FWidgets, ThatLeftOutliveTheCollectorUntilTheyAreTornDown)
{
	UTestWidget* A = Put(TEXT("A"));
	Display();
	A->Ticked = [A]
	{
		A->RemoveFromParent();
	};
	Release(A);
	const TWeakObjectPtr<UTestWidget> Weak(A);
	FWidgetTeardown::Get().TickTree(*Screen, 0.1f);
	CollectGarbage();
	ASSERT_TRUE(Weak.IsValid());
	FWidgetTeardown::Get().TearDownLeft();
	CollectGarbage();
	EXPECT_FALSE(Weak.IsValid());
}

TEST_F(FWidgets, LeaveAClearedPanelFromTheLastToTheFirst)
{
	class FObserver final : public IWidgetObserver
	{
	public:
		FObserver() { Install(this); }
		~FObserver() override { Install(nullptr); }
		void OnWidgetCreated(UUserWidget&) override {}
		void OnPositionSet(UCanvasPanelSlot&) override {}
		void OnWidgetLeaving(UWidget& Widget) override
		{
			EXPECT_NE(Widget.GetParent(), nullptr);
			LayerTest::GetLog().push_back(LayerTest::NameOf(Widget) + ":leaving");
		}
	};
	Put(TEXT("A"));
	Put(TEXT("B"));
	Display();
	const FObserver Observer;
	Canvas->ClearChildren();
	EXPECT_EQ(LayerTest::TakeLog(), (FLog{"B:leaving", "B:destruct", "A:leaving", "A:destruct"}));
	EXPECT_EQ(Canvas->GetChildrenCount(), 0);
}

TEST_F(FWidgets, MoveBetweenPanels)
{
	UTestWidget* A = Put(TEXT("A"));
	UTestWidget* B = Put(TEXT("B"));
	UTestWidget* C = Put(TEXT("C"));
	Display();
	Canvas->RemoveChildAt(0);
	EXPECT_TRUE(Canvas->RemoveChild(C)) << "found though it moved down";
	EXPECT_FALSE(Canvas->RemoveChild(C));
	EXPECT_FALSE(Canvas->RemoveChildAt(5));
	EXPECT_EQ(Canvas->AddChild(nullptr), nullptr);
	Inside(B)->AddChild(A);
	EXPECT_TRUE(Inside(B)->HasChild(A));
	EXPECT_FALSE(Canvas->HasChild(A));
	EXPECT_EQ(Tick(), (FLog{"S:tick", "B:tick", "A:tick"}));
	EXPECT_EQ(Screen->GetWidgetFromName(TEXT("C")), nullptr);
	EXPECT_EQ(Screen->GetWidgetFromName(TEXT("b")), B) << "names have no case";
}

} // namespace
