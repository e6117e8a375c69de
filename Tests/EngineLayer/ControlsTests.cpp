#include "LayerFixture.h"

#include "Blueprint/WidgetBlueprintBuilder.h"
#include "Components/CheckBox.h"
#include "Components/Image.h"
#include "Components/WrapBox.h"

namespace
{

/** A user widget with one of each control, in a wrap box, inside the user widget of a whole screen. */
class FControls : public FLayerFixture
{
protected:
	FControls()
	{
		std::string Error;
		FWidgetBlueprintBuilder ScreenBuilder(TEXT("WBP_Screen"), UTestWidget::StaticClass());
		ScreenBlueprint = ScreenBuilder.Add(UCanvasPanel::StaticClass(), TEXT("Canvas")).Build(Error);
		FWidgetBlueprintBuilder BarBuilder(TEXT("WBP_Bar"), UTestWidget::StaticClass());
		BarBlueprint = BarBuilder.Add(UWrapBox::StaticClass(), TEXT("Box"))
						   .Add(UButton::StaticClass(), TEXT("Button"), TEXT("Box"))
						   .Add(UCheckBox::StaticClass(), TEXT("Check"), TEXT("Box"))
						   .Add(UEditableText::StaticClass(), TEXT("Field"), TEXT("Box"))
						   .Build(Error);
		Screen = CreateWidget<UTestWidget>(World, ScreenBlueprint.get(), TEXT("Screen"));
		Bar = CreateWidget<UTestWidget>(Screen, BarBlueprint.get(), TEXT("Bar"));
		Keep(Screen);
		Keep(Bar);
		Button = Cast<UButton>(Bar->GetWidgetFromName(TEXT("Button")));
		Check = Cast<UCheckBox>(Bar->GetWidgetFromName(TEXT("Check")));
		Field = Cast<UEditableText>(Bar->GetWidgetFromName(TEXT("Field")));
		Listener = MakeKept<UTestListener>(TEXT("L"));
		Button->OnClicked.AddDynamic(Listener, &UTestListener::OnPlain);
		Button->OnHovered.AddDynamic(Listener, &UTestListener::OnPlain);
		Button->OnUnhovered.AddDynamic(Listener, &UTestListener::OnPlain);
		Check->OnCheckStateChanged.AddDynamic(Listener, &UTestListener::OnBool);
		Field->OnTextChanged.AddDynamic(Listener, &UTestListener::OnText);
		Field->OnTextCommitted.AddDynamic(Listener, &UTestListener::OnCommitted);
	}

	void Display()
	{
		Cast<UPanelWidget>(Screen->GetRootWidget())->AddChild(Bar);
		Screen->ConstructTree();
		LayerTest::TakeLog();
	}
	/** Everything that a viewer can do; gives how many events came of it. */
	std::size_t DoAll()
	{
		LayerTest::TakeLog();
		Button->Click();
		Button->Hover();
		Button->Unhover();
		Check->Toggle(!Check->IsChecked());
		Field->TypeText(FText::FromString(Field->GetText().ToString() + TEXT("x")));
		Field->Commit(ETextCommit::OnEnter);
		Bar->PointerEnter();
		Bar->PointerLeave();
		return LayerTest::TakeLog().size();
	}

	std::unique_ptr<UWidgetBlueprintGeneratedClass> ScreenBlueprint;
	std::unique_ptr<UWidgetBlueprintGeneratedClass> BarBlueprint;
	UTestWidget* Screen;
	UTestWidget* Bar;
	UButton* Button;
	UCheckBox* Check;
	UEditableText* Field;
	UTestListener* Listener;
};

TEST_F(FControls, AreUsableOnlyWhereDisplayedAndEnabledAllTheWayUp)
{
	EXPECT_EQ(DoAll(), 0u) << "not displayed yet";
	Display();
	EXPECT_EQ(DoAll(), 8u);
	UWidget* const Around[] = {Bar->GetRootWidget(), Bar, Screen->GetRootWidget(), Screen};
	for (UWidget* Widget : Around)
	{
		// What goes on inside the bar's box does not keep the pointer from the bar itself.
		const std::size_t Left = Widget == Bar->GetRootWidget() ? 2 : 0;
		SCOPED_TRACE(LayerTest::NameOf(*Widget));
		for (const ESlateVisibility Gone : {ESlateVisibility::Hidden, ESlateVisibility::Collapsed})
		{
			Widget->SetVisibility(Gone);
			EXPECT_EQ(DoAll(), Left);
		}
		Widget->SetVisibility(ESlateVisibility::Visible);
		Widget->SetIsEnabled(false);
		EXPECT_EQ(DoAll(), Left);
		Widget->SetIsEnabled(true);
	}
	UWidget* const Controls[] = {Button, Check, Field};
	const std::size_t NumWithout[] = {5, 7, 6};
	for (std::size_t Index = 0; Index < std::size(Controls); ++Index)
	{
		Controls[Index]->SetIsEnabled(false);
		EXPECT_EQ(DoAll(), NumWithout[Index]);
		Controls[Index]->SetIsEnabled(true);
		Controls[Index]->SetVisibility(ESlateVisibility::Collapsed);
		EXPECT_EQ(DoAll(), NumWithout[Index]);
		Controls[Index]->SetVisibility(ESlateVisibility::Visible);
	}
	EXPECT_EQ(DoAll(), 8u);
	Bar->RemoveFromParent();
	EXPECT_EQ(DoAll(), 0u) << "off the screen";
}

TEST_F(FControls, FieldTellsOfEveryChangeOnceDisplayed)
{
	Field->SetText(FText::FromString(TEXT("early")));
	EXPECT_EQ(LayerTest::TakeLog().size(), 2u) << "only the two widgets' initialisation";
	Display();
	const struct
	{
		bool bTyped;
		const TCHAR* Text;
		FLog Expected;
	} Steps[] = {
		{false, TEXT("early"), {}},
		{true, TEXT("early"), {}},
		{false, TEXT("Early"), {"L:text Early"}},
		{true, TEXT("early"), {"L:text early"}},
		{false, TEXT(""), {"L:text "}},
		{false, TEXT(""), {}},
		{true, TEXT("early"), {"L:text early"}},
	};
	for (const auto& Step : Steps)
	{
		const FText Text = FText::FromString(Step.Text);
		Step.bTyped ? Field->TypeText(Text) : Field->SetText(Text);
		EXPECT_EQ(LayerTest::TakeLog(), Step.Expected) << LayerTest::ToUtf8(Text.ToString());
		EXPECT_TRUE(Field->GetText().ToString().Equals(Step.Text));
	}
	Bar->SetVisibility(ESlateVisibility::Hidden);
	Field->SetText(FText::FromString(TEXT("unseen")));
	EXPECT_EQ(LayerTest::TakeLog(), FLog{"L:text unseen"});
}

TEST_F(FControls, SubscribersGetTheTextOfTheirEventThoughAnotherSetsTheNext)
{
	Display();
	UTestListener* Later = MakeKept<UTestListener>(TEXT("M"));
	Field->OnTextChanged.AddDynamic(Later, &UTestListener::OnText);
	Listener->Reaction = [this]
	{
		Field->SetText(FText::FromString(TEXT("cut")));
	};
	Field->TypeText(FText::FromString(TEXT("too long")));
	EXPECT_EQ(LayerTest::TakeLog(), (FLog{"L:text too long", "L:text cut", "M:text cut", "M:text too long"}));
	EXPECT_TRUE(Field->GetText().ToString().Equals(TEXT("cut")));
}

TEST_F(FControls, FocusIsGivenBySetFocusAndTakenByMovingIt)
{
	Display();
	Field->SetText(FText::FromString(TEXT("t")));
	Field->SetFocus();
	for (const ETextCommit::Type Kept : {ETextCommit::Default, ETextCommit::OnEnter, ETextCommit::OnCleared})
	{
		Field->Commit(Kept);
		EXPECT_TRUE(Field->HasKeyboardFocus());
	}
	LayerTest::TakeLog();
	bool bFocusedInside = true;
	Listener->Reaction = [&]
	{
		bFocusedInside = Field->HasKeyboardFocus();
	};
	Field->SetIsEnabled(false);
	Field->Commit(ETextCommit::OnUserMovedFocus);
	EXPECT_TRUE(Field->HasKeyboardFocus());
	Field->SetIsEnabled(true);
	Field->Commit(ETextCommit::OnUserMovedFocus);
	EXPECT_EQ(LayerTest::TakeLog(), FLog{"L:commit 2 t"});
	EXPECT_FALSE(bFocusedInside);
	Button->SetFocus();
	Field->Commit(ETextCommit::OnUserMovedFocus);
	EXPECT_TRUE(Button->HasKeyboardFocus()) << "somebody else's";
	Button->ClearFocus();
	EXPECT_FALSE(Button->HasKeyboardFocus());
}

TEST_F(FControls, OnlyAViewerRaisesACheckBoxesEvent)
{
	Display();
	Check->SetIsChecked(true);
	Check->Toggle(true);
	EXPECT_EQ(LayerTest::TakeLog(), FLog{});
	Listener->Reaction = [this]
	{
		Check->SetIsChecked(true);
	};
	Check->Toggle(false);
	EXPECT_EQ(LayerTest::TakeLog(), FLog{"L:false"});
	EXPECT_TRUE(Check->IsChecked()) << "checked again by the subscriber";
}

} // namespace
