#include "LayerFixture.h"

#include "Blueprint/WidgetBlueprintBuilder.h"
#include "Components/CheckBox.h"
#include "Components/Image.h"
#include "Components/WrapBox.h"

namespace
{

/** A user widget with one of each control, in a wrap box, inside a full-screen user widget. */
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
	/** Does everything that a viewer can do; returns how many events that raised. */
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
		// Whatever happens inside the bar's box, the pointer still reaches the bar itself.
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

TEST_F(FControls, OnlyAViewerRaisesAFieldsChangedEvent)
{
	Display();
	const struct
	{
		bool bTyped;
		const TCHAR* Text;
		FLog Expected;
	} Steps[] = {
		{false, TEXT("set"), {}},
		{true, TEXT("set"), {}},
		{true, TEXT("Set"), {"L:text Set"}},
		{false, TEXT(""), {}},
		{true, TEXT("typed"), {"L:text typed"}},
		{true, TEXT(""), {"L:text "}},
	};
	for (const auto& Step : Steps)
	{
		const FText Text = FText::FromString(Step.Text);
		Step.bTyped ? Field->TypeText(Text) : Field->SetText(Text);
		EXPECT_EQ(LayerTest::TakeLog(), Step.Expected) << LayerTest::ToUtf8(Text.ToString());
		EXPECT_TRUE(Field->GetText().ToString().Equals(Step.Text));
	}
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
	EXPECT_EQ(LayerTest::TakeLog(), (FLog{"L:text too long", "M:text too long"}));
	EXPECT_TRUE(Field->GetText().ToString().Equals(TEXT("cut")));
}

TEST_F(FControls, CommitsGiveUpTheKeyboard)
{
	Display();
	const struct
	{
		ETextCommit::Type How;
		bool bClearOnCommit;
		bool bFocusedInEvent;
		bool bFocusedAfter;
		FLog Expected;
	} Cases[] = {
		{ETextCommit::Default, true, true, true, {"L:commit 0 t"}},
		{ETextCommit::OnEnter, false, true, true, {"L:commit 1 t"}},
		{ETextCommit::OnEnter, true, true, false, {"L:commit 1 t", "L:commit 3 u"}},
		{ETextCommit::OnUserMovedFocus, true, false, false, {"L:commit 2 t"}},
		{ETextCommit::OnUserMovedFocus, false, false, false, {"L:commit 2 t"}},
		{ETextCommit::OnCleared, true, true, true, {"L:commit 3 t"}},
	};
	for (const auto& Case : Cases)
	{
		SCOPED_TRACE(Case.Expected.front());
		Field->ClearKeyboardFocusOnCommit = Case.bClearOnCommit;
		Field->SetText(FText::FromString(TEXT("t")));
		Field->SetFocus();
		std::vector<bool> Focused;
		Listener->Reaction = [&]
		{
			Focused.push_back(Field->HasKeyboardFocus());
			Field->SetText(FText::FromString(TEXT("u")));
		};
		Field->Commit(Case.How);
		EXPECT_EQ(LayerTest::TakeLog(), Case.Expected);
		ASSERT_FALSE(Focused.empty());
		EXPECT_EQ(Focused.front(), Case.bFocusedInEvent);
		EXPECT_EQ(Field->HasKeyboardFocus(), Case.bFocusedAfter);
	}
	Listener->Reaction = nullptr;
	Field->ClearKeyboardFocusOnCommit = true;
	Field->SetFocus();
	Field->SetIsEnabled(false);
	Field->Commit(ETextCommit::OnUserMovedFocus);
	EXPECT_TRUE(Field->HasKeyboardFocus()) << "disabled";
	Field->SetIsEnabled(true);
	LayerTest::TakeLog();
	Button->SetFocus();
	Field->Commit(ETextCommit::OnEnter);
	EXPECT_EQ(LayerTest::TakeLog(), FLog{"L:commit 1 u"}) << "no focus to lose";
	Field->Commit(ETextCommit::OnUserMovedFocus);
	EXPECT_TRUE(Button->HasKeyboardFocus()) << "another widget's";
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
