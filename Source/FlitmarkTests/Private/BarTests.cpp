#include "Components/Button.h"
#include "Components/CheckBox.h"
#include "Components/EditableText.h"
#include "Components/TextBlock.h"
#include "FlitmarkBar.h"
#include "FlitmarkOverlay.h"
#include "Misc/AutomationTest.h"
#include "TestScreen.h"
#include "UI_DanmakuNode.h"

#if WITH_DEV_AUTOMATION_TESTS

namespace FlitmarkTests
{

template <class WidgetT>
static WidgetT* FindPart(const UUserWidget& Owner, const TCHAR* Name)
{
	return Cast<WidgetT>(Owner.GetWidgetFromName(Name));
}

static FString GetText(const UUserWidget& Bar)
{
	return FindPart<UEditableText>(Bar, TEXT("InputDanmakuText"))->GetText().ToString();
}

static FString GetCounter(const UUserWidget& Bar)
{
	return FindPart<UTextBlock>(Bar, TEXT("TextNum"))->GetText().ToString();
}

/** As if the viewer had typed it. */
static void Type(const UUserWidget& Bar, const FString& Text)
{
	UEditableText* Field = FindPart<UEditableText>(Bar, TEXT("InputDanmakuText"));
	Field->SetText(FText::FromString(Text));
	Field->OnTextChanged.Broadcast(FText::FromString(Text));
}

} // namespace FlitmarkTests

IMPLEMENT_SIMPLE_AUTOMATION_TEST(FFlitmarkBarWritingTest, "Flitmark.Bar.Writing",
								 EAutomationTestFlags::ApplicationContextMask | EAutomationTestFlags::ProductFilter)

bool FFlitmarkBarWritingTest::RunTest(const FString&)
{
	using namespace FlitmarkTests;
	FTestScreen Screen;
	UFlitmarkBar& Bar = *Screen.Make<UFlitmarkBar>();
	Screen.Construct(Bar);
	TestEqual(TEXT("the counter at first"), GetCounter(Bar), FString(TEXT("0/100")));
	Type(Bar, TEXT("hello"));
	TestEqual(TEXT("the counter of five letters"), GetCounter(Bar), FString(TEXT("5/100")));
	FString Long;
	for (int32 Index = 0; Index < 12; ++Index)
	{
		Long = Long + TEXT("0123456789");
	}
	Type(Bar, Long);
	TestEqual(TEXT("a text that is too long is cut"), GetText(Bar), Long.Left(100));
	TestEqual(TEXT("the counter when full"), GetCounter(Bar), FString(TEXT("100/100")));
	Bar.GetSendDanmakuButtonClickedEvent().Broadcast();
	TestEqual(TEXT("the text after sending"), GetText(Bar), FString());
	TestEqual(TEXT("the counter after sending"), GetCounter(Bar), FString(TEXT("0/100")));
	Type(Bar, TEXT("kept"));
	UEditableText* Field = FindPart<UEditableText>(Bar, TEXT("InputDanmakuText"));
	Field->OnTextCommitted.Broadcast(Field->GetText(), ETextCommit::OnUserMovedFocus);
	TestEqual(TEXT("the text after the focus moved"), GetText(Bar), FString(TEXT("kept")));
	Field->OnTextCommitted.Broadcast(Field->GetText(), ETextCommit::OnEnter);
	TestEqual(TEXT("the text after Enter"), GetText(Bar), FString());
	return true;
}

IMPLEMENT_SIMPLE_AUTOMATION_TEST(FFlitmarkBarOverlayTest, "Flitmark.Bar.DrivesTheOverlay",
								 EAutomationTestFlags::ApplicationContextMask | EAutomationTestFlags::ProductFilter)

bool FFlitmarkBarOverlayTest::RunTest(const FString&)
{
	using namespace FlitmarkTests;
	FTestScreen Screen;
	UFlitmarkBar& Bar = *Screen.Make<UFlitmarkBar>();
	Screen.Construct(Bar);
	FTestOverlay Test(Screen, &Bar);
	Bar.OnSendDanmaku.Broadcast(TEXT("file:///video"), 70000000, TEXT("sent"), EDanmakuMode::TOP, 24, TEXT("#FFFFFF"));
	const UUI_DanmakuNode* Own = Test.GetShown(0);
	if (!TestNotNull(TEXT("the viewer's comment is shown at once"), Own))
	{
		return false;
	}
	TestEqual(TEXT("its text"), Own->GetData().Content, FString(TEXT("sent")));
	TestTrue(TEXT("its time"), Own->GetData().SpawnTime.GetTicks() == 70000000);

	UWidget* Send = FindPart<UWidget>(Bar, TEXT("SendDanmakuButton"));
	UWidget* Style = FindPart<UWidget>(Bar, TEXT("DanmakuNodeSettingButton"));
	Bar.GetOpenDanmakuButtonClickedEvent().Broadcast(false);
	TestEqual(TEXT("comments when switched off"), Test.CountShown(), 0);
	TestFalse(TEXT("the button when switched off"), Send->GetIsEnabled());
	TestTrue(TEXT("the style button when switched off"), Style->GetVisibility() == ESlateVisibility::Collapsed);
	TestEqual(TEXT("the text when switched off"), GetText(Bar), FString(TEXT("ClosedBullet")));
	Bar.GetOpenDanmakuButtonClickedEvent().Broadcast(true);
	TestTrue(TEXT("the button when switched on"), Send->GetIsEnabled());
	TestTrue(TEXT("the style button when switched on"), Style->GetVisibility() == ESlateVisibility::Visible);
	TestEqual(TEXT("the text when switched on"), GetText(Bar), FString());
	return true;
}

#endif
