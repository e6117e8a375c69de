#include "ViewerTestKit.h"

#include <gtest/gtest.h>

#include <ostream>

namespace Flitmark
{

namespace
{

const QString Smile = QString::fromUcs4(U"\U0001F600");

struct FTypedCase
{
	const char* Name;
	QString Typed;
	QString Left;
	QString Counter;
};

void PrintTo(const FTypedCase& Case, std::ostream* Out)
{
	*Out << Case.Name;
}

class TypedTest : public testing::TestWithParam<FTypedCase>
{
};

TEST_P(TypedTest, FieldAndCounterShowWhatTheBarMakesOfIt)
{
	FViewerStage Stage;
	Stage.Bar().GetField()->Type(GetParam().Typed);
	EXPECT_EQ(Stage.Bar().GetField()->GetText(), GetParam().Left);
	EXPECT_EQ(Stage.Bar().GetCounter()->GetText(), GetParam().Counter);
}

INSTANTIATE_TEST_SUITE_P(
	Viewer, TypedTest,
	testing::Values(FTypedCase{"Plain", "a b", "a b", "3/100"}, FTypedCase{"Empty", "", "", "0/100"},
					FTypedCase{"Full", QString(100, 'x'), QString(100, 'x'), "100/100"},
					FTypedCase{"Cut", QString(130, 'x'), QString(100, 'x'), "100/100"},
					FTypedCase{"PairAtTheEnd", QString(98, 'x') + Smile, QString(98, 'x') + Smile, "100/100"},
					FTypedCase{"PairAcrossTheEnd", QString(99, 'x') + Smile, QString(99, 'x'), "99/100"},
					FTypedCase{"PairBehindTheEnd", QString(100, 'x') + Smile, QString(100, 'x'), "100/100"}),
	[](const auto& Info) { return Info.param.Name; });

TEST(ViewerBar, SendsAndShowsItAtOnce)
{
	FViewerStage Stage;
	FFieldMirror& Field = *Stage.Bar().GetField();
	Field.Type("one");
	Field.Commit();
	Field.Type("two");
	Stage.Bar().GetSend()->Click();
	EXPECT_EQ(Field.GetText(), "");
	EXPECT_EQ(Stage.Bar().GetCounter()->GetText(), "0/100");
	EXPECT_EQ(Stage.CountComments(), 2);

	// Moving the focus elsewhere sends nothing, and white space alone is not a comment.
	Field.TakeFocus();
	Field.Type("three");
	Field.LeaveFocus();
	EXPECT_FALSE(Field.IsFocused());
	EXPECT_EQ(Field.GetText(), "three");
	Field.Type("   ");
	Stage.Bar().GetSend()->Click();
	EXPECT_EQ(Field.GetText(), "");
	EXPECT_TRUE(Field.IsFocused());
	EXPECT_EQ(Stage.CountComments(), 2);
}

TEST(ViewerBar, ClosesAndOpensByItsSwitch)
{
	FViewerStage Stage;
	FBarMirror& Bar = Stage.Bar();
	Bar.GetField()->TakeFocus();
	for (const bool bOpen : {false, true})
	{
		Bar.GetOpen()->Toggle(bOpen);
		EXPECT_EQ(Bar.GetOpen()->IsChecked(), bOpen);
		EXPECT_TRUE(Bar.GetOpen()->IsUsable());
		EXPECT_EQ(Bar.GetField()->IsUsable(), bOpen);
		EXPECT_EQ(Bar.GetField()->GetText().isEmpty(), bOpen);
		EXPECT_EQ(Bar.GetSend()->IsUsable(), bOpen);
		EXPECT_EQ(Bar.GetCounter()->IsDisplayed(), bOpen);
		EXPECT_EQ(Bar.GetSettings()->IsDisplayed(), bOpen);
		EXPECT_EQ(Stage.Overlay->GetStage().GetCanvas().IsDisplayed(), bOpen);
		// A window's control loses keyboard focus when it is disabled.
		Bar.GetField()->LeaveFocus();
		EXPECT_FALSE(Bar.GetField()->IsFocused());
	}
}

TEST(ViewerBar, ASwitchBeforeTheFirstLayoutHolds)
{
	FViewerStage Stage(false);
	Stage.Bar().GetOpen()->Toggle(false);
	Stage.LayOut();
	EXPECT_FALSE(Stage.Overlay->GetStage().GetCanvas().IsDisplayed());
	EXPECT_FALSE(Stage.Bar().GetOpen()->IsChecked());
	Stage.Bar().GetOpen()->Toggle(true);
	EXPECT_TRUE(Stage.Overlay->GetStage().GetCanvas().IsDisplayed());
}

TEST(ViewerBar, TellsOnlyWhatChanged)
{
	FViewerStage Stage;
	int NumTexts = 0;
	int NumCounters = 0;
	int NumActs = 0;
	QObject::connect(Stage.Bar().GetField(), &FFieldMirror::TextChanged, [&] { ++NumTexts; });
	QObject::connect(Stage.Bar().GetCounter(), &FLabelMirror::TextChanged, [&] { ++NumCounters; });
	QObject::connect(Stage.Bridge.get(), &FViewerBridge::Acted, [&] { ++NumActs; });
	Stage.Bar().GetField()->Type("abc");
	Stage.Run(0.1);
	Stage.Bar().GetField()->Type("abd");
	Stage.Run(0.1);
	EXPECT_EQ(NumTexts, 2);
	EXPECT_EQ(NumCounters, 1);
	EXPECT_EQ(NumActs, 2);
}

struct FColorCase
{
	const char* Typed;
	const char* Left;
	const char* Swatch;
	/** The preset that is then checked; empty for none. */
	const char* Checked;
};

void PrintTo(const FColorCase& Case, std::ostream* Out)
{
	*Out << Case.Typed;
}

class ColorTest : public testing::TestWithParam<FColorCase>
{
};

TEST_P(ColorTest, FieldSwatchAndPresetsShowWhatThePanelMakesOfIt)
{
	FViewerStage Stage;
	Stage.Bar().GetSettings()->Hover();
	Stage.Panel().GetColorField()->Type(GetParam().Typed);
	EXPECT_EQ(Stage.Panel().GetColorField()->GetText(), GetParam().Left);
	EXPECT_EQ(Stage.Panel().GetSwatch(), QColor(GetParam().Swatch));
	QString Checked;
	for (int Index = 0; Index < 4; ++Index)
	{
		const FCheckBoxMirror& Box = Stage.Box(Stage.Panel().GetPresets(), Index);
		Checked += Box.IsChecked() ? Box.GetName() : "";
	}
	EXPECT_EQ(Checked, GetParam().Checked);
}

INSTANTIATE_TEST_SUITE_P(Viewer, ColorTest,
						 testing::Values(FColorCase{"#fe0302", "#FE0302", "#FE0302", "C_FE0302"},
										 FColorCase{"#abc", "#abc", "#AABBCC", ""},
										 FColorCase{"12ab", "#12ab", "#FFFFFF", ""},
										 FColorCase{"a1 b2 c3 d4", "#a1b2c3", "#A1B2C3", ""},
										 FColorCase{"000000", "#000000", "#000000", ""}));

TEST(ViewerPanel, OneOfAGroupIsChecked)
{
	FViewerStage Stage;
	Stage.Bar().GetSettings()->Hover();
	FCheckBoxMirror& Scroll = Stage.Box(Stage.Panel().GetModes(), 0);
	FCheckBoxMirror& Bottom = Stage.Box(Stage.Panel().GetModes(), 2);
	Bottom.Toggle(true);
	EXPECT_FALSE(Scroll.IsChecked());
	Bottom.Toggle(false);
	EXPECT_TRUE(Bottom.IsChecked());
	Stage.Box(Stage.Panel().GetSizes(), 0).Toggle(true);
	EXPECT_FALSE(Stage.Box(Stage.Panel().GetSizes(), 1).IsChecked());
	Stage.Box(Stage.Panel().GetPresets(), 2).Toggle(true);
	EXPECT_EQ(Stage.Panel().GetColorField()->GetText(), "#4266BE");
}

TEST(ViewerPanel, HidesThreeQuartersOfASecondAfterThePointerLeftBoth)
{
	FViewerStage Stage;
	FPanelMirror& Panel = Stage.Panel();
	EXPECT_FALSE(Panel.IsDisplayed());
	Stage.Bar().GetSettings()->Hover();
	EXPECT_TRUE(Panel.IsDisplayed());
	Stage.Run(5);
	EXPECT_TRUE(Panel.IsDisplayed());

	// From the button to the panel, and away.
	Stage.Bar().GetSettings()->Unhover();
	Stage.Run(0.5);
	Panel.Enter();
	Stage.Run(5);
	EXPECT_TRUE(Panel.IsDisplayed());
	Panel.Leave();
	Stage.Run(0.7);
	EXPECT_TRUE(Panel.IsDisplayed());
	Stage.Run(0.1);
	EXPECT_FALSE(Panel.IsDisplayed());

	Stage.Bar().GetSettings()->Hover();
	Panel.Dismiss();
	EXPECT_FALSE(Panel.IsDisplayed());
}

} // namespace

} // namespace Flitmark
