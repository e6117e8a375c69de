#include "Components/CheckBox.h"
#include "Components/EditableText.h"
#include "FlitmarkTestPanel.h"
#include "Misc/AutomationTest.h"
#include "TestScreen.h"

#if WITH_DEV_AUTOMATION_TESTS

namespace FlitmarkTests
{

static UFlitmarkTestPanel& MakePanel(FTestScreen& Screen)
{
	UFlitmarkTestPanel* Panel = Screen.Make<UFlitmarkTestPanel>();
	Panel->EnsureInitialized();
	Screen.Construct(*Panel);
	return *Panel;
}

static UCheckBox& FindBox(const UUserWidget& Panel, const TCHAR* Name)
{
	return *Cast<UCheckBox>(Panel.GetWidgetFromName(Name));
}

/** As if the viewer had checked or unchecked it. */
static void Tick(const UUserWidget& Panel, const TCHAR* Name, bool bChecked)
{
	UCheckBox& Box = FindBox(Panel, Name);
	Box.SetIsChecked(bChecked);
	Box.OnCheckStateChanged.Broadcast(bChecked);
}

} // namespace FlitmarkTests

IMPLEMENT_SIMPLE_AUTOMATION_TEST(FFlitmarkPanelChoicesTest, "Flitmark.Panel.Choices",
								 EAutomationTestFlags::ApplicationContextMask | EAutomationTestFlags::ProductFilter)

bool FFlitmarkPanelChoicesTest::RunTest(const FString&)
{
	FTestScreen Screen;
	UFlitmarkTestPanel& Panel = FlitmarkTests::MakePanel(Screen);
	TestTrue(TEXT("hidden at first"), Panel.GetVisibility() == ESlateVisibility::Hidden);
	TestTrue(TEXT("scrolling at first"), Panel.GetModel() == EDanmakuMode::SCROLL);
	TestEqual(TEXT("normal at first"), Panel.GetFontSize(), 24);
	TestEqual(TEXT("white at first"), Panel.GetFontColor(), FString(TEXT("#FFFFFFFF")));
	const struct
	{
		const TCHAR* Box;
		bool bChecked;
		EDanmakuMode Mode;
		int32 Size;
	} Steps[] = {
		{TEXT("Bottom"), true, EDanmakuMode::BOTTOM, 24},  {TEXT("Bottom"), false, EDanmakuMode::BOTTOM, 24},
		{TEXT("Top"), true, EDanmakuMode::TOP, 24},		   {TEXT("Small"), true, EDanmakuMode::TOP, 18},
		{TEXT("Small"), false, EDanmakuMode::TOP, 18},	   {TEXT("Top"), false, EDanmakuMode::TOP, 18},
		{TEXT("Normal"), true, EDanmakuMode::TOP, 24},	   {TEXT("Scroll"), true, EDanmakuMode::SCROLL, 24},
		{TEXT("Scroll"), false, EDanmakuMode::SCROLL, 24},
	};
	for (const auto& Step : Steps)
	{
		FlitmarkTests::Tick(Panel, Step.Box, Step.bChecked);
		TestTrue(Step.Box, Panel.GetModel() == Step.Mode);
		TestEqual(Step.Box, Panel.GetFontSize(), Step.Size);
		TestTrue(Step.Box, FlitmarkTests::FindBox(Panel, Step.Box).IsChecked());
		int32 Checked = 0;
		for (const TCHAR* Name : {TEXT("Scroll"), TEXT("Top"), TEXT("Bottom"), TEXT("Small"), TEXT("Normal")})
		{
			Checked += FlitmarkTests::FindBox(Panel, Name).IsChecked() ? 1 : 0;
		}
		TestEqual(TEXT("one mode and one size are checked"), Checked, 2);
	}
	return true;
}

IMPLEMENT_SIMPLE_AUTOMATION_TEST(FFlitmarkPanelColorTest, "Flitmark.Panel.TypedColor",
								 EAutomationTestFlags::ApplicationContextMask | EAutomationTestFlags::ProductFilter)

bool FFlitmarkPanelColorTest::RunTest(const FString&)
{
	FTestScreen Screen;
	UFlitmarkTestPanel& Panel = FlitmarkTests::MakePanel(Screen);
	UEditableText* Field = Cast<UEditableText>(Panel.GetWidgetFromName(TEXT("InputColorText")));
	const struct
	{
		const TCHAR* Typed;
		const TCHAR* Text;
		const TCHAR* Color;
		/** The checked preset; empty for none. */
		const TCHAR* Preset;
	} Cases[] = {
		{TEXT("#fe0302"), TEXT("#FE0302"), TEXT("#FE0302FF"), TEXT("C_FE0302")},
		{TEXT("#00cd00zz"), TEXT("#00CD00"), TEXT("#00CD00FF"), TEXT("C_00CD00")},
		{TEXT("#ffffff77"), TEXT("#FFFFFF"), TEXT("#FFFFFFFF"), TEXT("C_FFFFFF")},
		{TEXT("#abc"), TEXT("#abc"), TEXT("#AABBCCFF"), TEXT("")},
		{TEXT("12ab"), TEXT("#12ab"), TEXT("#FFFFFFFF"), TEXT("")},
		{TEXT("a1 b2 c3 d4"), TEXT("#a1b2c3"), TEXT("#A1B2C3FF"), TEXT("")},
		{TEXT("000"), TEXT("#000"), TEXT("#000000FF"), TEXT("")},
		{TEXT("00"), TEXT("#00"), TEXT("#FFFFFFFF"), TEXT("")},
		{TEXT("xyz"), TEXT("#"), TEXT("#FFFFFFFF"), TEXT("")},
		// A cleared field keeps the preset: the rewrite to "#" raises no event.
		{TEXT(""), TEXT("#"), TEXT("#FFFFFFFF"), TEXT("C_FFFFFF")},
	};
	for (const auto& Case : Cases)
	{
		FlitmarkTests::Tick(Panel, TEXT("C_4266BE"), true);
		FlitmarkTests::Tick(Panel, TEXT("C_FFFFFF"), true);
		Field->SetText(FText::FromString(Case.Typed));
		Field->OnTextChanged.Broadcast(FText::FromString(Case.Typed));
		TestTrue(Case.Typed, Field->GetText().ToString().Equals(Case.Text));
		TestEqual(Case.Typed, Panel.GetFontColor(), FString(Case.Color));
		for (const TCHAR* Name : {TEXT("C_FE0302"), TEXT("C_00CD00"), TEXT("C_4266BE"), TEXT("C_FFFFFF")})
		{
			TestTrue(Case.Typed, FlitmarkTests::FindBox(Panel, Name).IsChecked() == FString(Name).Equals(Case.Preset));
		}
	}
	return true;
}

#endif
