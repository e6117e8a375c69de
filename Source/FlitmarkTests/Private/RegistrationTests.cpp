#include "Components/Button.h"
#include "Components/CanvasPanel.h"
#include "Components/CheckBox.h"
#include "Components/EditableText.h"
#include "Components/Image.h"
#include "Components/TextBlock.h"
#include "Components/WrapBox.h"
#include "DanmakuDataStruct.h"
#include "DanmakuTrack.h"
#include "DanmakuTrackManager.h"
#include "FlitmarkBar.h"
#include "FlitmarkComment.h"
#include "FlitmarkOverlay.h"
#include "FlitmarkPanel.h"
#include "Misc/AutomationTest.h"
#include "TestScreen.h"
#include "UObject/UnrealType.h"

#if WITH_DEV_AUTOMATION_TESTS

namespace FlitmarkTests
{

struct FBoundWidget
{
	UUserWidget* Owner;
	const TCHAR* Name;
	UClass* Type;
};

static TArray<FBoundWidget> MakeBoundWidgets(FTestScreen& Screen)
{
	UUserWidget* Comment = Screen.Make<UFlitmarkComment>();
	UUserWidget* Overlay = Screen.Make<UFlitmarkOverlay>();
	UUserWidget* Bar = Screen.Make<UFlitmarkBar>();
	UUserWidget* Panel = Screen.Make<UFlitmarkPanel>();
	return {{Comment, TEXT("NodeContentText"), UTextBlock::StaticClass()},
			{Overlay, TEXT("DanmakuCanvasPanel"), UCanvasPanel::StaticClass()},
			{Bar, TEXT("OpenDanmakuButton"), UCheckBox::StaticClass()},
			{Bar, TEXT("DanmakuNodeSettingButton"), UButton::StaticClass()},
			{Bar, TEXT("InputDanmakuText"), UEditableText::StaticClass()},
			{Bar, TEXT("TextNum"), UTextBlock::StaticClass()},
			{Bar, TEXT("SendDanmakuButton"), UButton::StaticClass()},
			{Panel, TEXT("ModelBox"), UWrapBox::StaticClass()},
			{Panel, TEXT("Scroll"), UCheckBox::StaticClass()},
			{Panel, TEXT("Top"), UCheckBox::StaticClass()},
			{Panel, TEXT("Bottom"), UCheckBox::StaticClass()},
			{Panel, TEXT("FontBox"), UWrapBox::StaticClass()},
			{Panel, TEXT("Small"), UCheckBox::StaticClass()},
			{Panel, TEXT("Normal"), UCheckBox::StaticClass()},
			{Panel, TEXT("ColorBox"), UWrapBox::StaticClass()},
			{Panel, TEXT("C_FE0302"), UCheckBox::StaticClass()},
			{Panel, TEXT("C_00CD00"), UCheckBox::StaticClass()},
			{Panel, TEXT("C_4266BE"), UCheckBox::StaticClass()},
			{Panel, TEXT("C_FFFFFF"), UCheckBox::StaticClass()},
			{Panel, TEXT("InputColorText"), UEditableText::StaticClass()},
			{Panel, TEXT("DisplayColorImage"), UImage::StaticClass()}};
}

} // namespace FlitmarkTests

IMPLEMENT_SIMPLE_AUTOMATION_TEST(FFlitmarkBoundWidgetsTest, "Flitmark.Registration.BoundWidgets",
								 EAutomationTestFlags::ApplicationContextMask | EAutomationTestFlags::ProductFilter)

bool FFlitmarkBoundWidgetsTest::RunTest(const FString&)
{
	FTestScreen Screen;
	for (const FlitmarkTests::FBoundWidget& Each : FlitmarkTests::MakeBoundWidgets(Screen))
	{
		const FObjectProperty* Member = FindFProperty<FObjectProperty>(Each.Owner->GetClass(), Each.Name);
		if (!TestNotNull(Each.Name, Member))
		{
			continue;
		}
		const UObject* Bound = Member->GetObjectPropertyValue_InContainer(Each.Owner);
		TestTrue(Each.Name, Bound != nullptr && Bound->IsA(Each.Type));
		TestTrue(Each.Name, Bound == Each.Owner->GetWidgetFromName(Each.Name));
	}
	return true;
}

IMPLEMENT_SIMPLE_AUTOMATION_TEST(FFlitmarkSettingsTest, "Flitmark.Registration.Settings",
								 EAutomationTestFlags::ApplicationContextMask | EAutomationTestFlags::ProductFilter)

bool FFlitmarkSettingsTest::RunTest(const FString&)
{
	const struct
	{
		UClass* Class;
		const TCHAR* Name;
		int32 Default;
	} Settings[] = {
		{UUI_DanmakuBar::StaticClass(), TEXT("MaxNumOFInputTex"), 100},
		{UUI_DanmakuNodeSetting::StaticClass(), TEXT("SmallFontSize"), 18},
		{UUI_DanmakuNodeSetting::StaticClass(), TEXT("NormalFontSize"), 24},
	};
	for (const auto& Setting : Settings)
	{
		const FProperty* Property = Setting.Class->FindPropertyByName(Setting.Name);
		if (TestNotNull(Setting.Name, Property))
		{
			const UObject* Defaults = Setting.Class->GetDefaultObject();
			TestEqual(Setting.Name, *Property->ContainerPtrToValuePtr<int32>(Defaults), Setting.Default);
		}
	}
	const FObjectProperty* NodeClass =
		FindFProperty<FClassProperty>(UUI_Danmaku::StaticClass(), TEXT("DanmakuNodeClass"));
	const UObject* ReadyMade = UFlitmarkOverlay::StaticClass()->GetDefaultObject();
	TestTrue(TEXT("DanmakuNodeClass"),
			 NodeClass->GetObjectPropertyValue_InContainer(ReadyMade) == UFlitmarkComment::StaticClass());
	return true;
}

IMPLEMENT_SIMPLE_AUTOMATION_TEST(FFlitmarkHandlersTest, "Flitmark.Registration.Handlers",
								 EAutomationTestFlags::ApplicationContextMask | EAutomationTestFlags::ProductFilter)

bool FFlitmarkHandlersTest::RunTest(const FString&)
{
	UClass* Panel = UUI_DanmakuNodeSetting::StaticClass();
	const struct
	{
		UClass* Class;
		const TCHAR* Name;
	} Handlers[] = {
		{UDanmakuTrack::StaticClass(), TEXT("OnNodeEnded")},
		{UDanmakuTrack::StaticClass(), TEXT("OnTick")},
		{UDanmakuTrackManager::StaticClass(), TEXT("OnDanmakuNodeStarted")},
		{UDanmakuTrackManager::StaticClass(), TEXT("OnDanmakuNodeUserStarted")},
		{UDanmakuTrackManager::StaticClass(), TEXT("OnDanmakuNodeEnded")},
		{UDanmakuTrackManager::StaticClass(), TEXT("OnDanmakuNodeCanceled")},
		{UUI_Danmaku::StaticClass(), TEXT("OnDanmakuSend")},
		{UUI_Danmaku::StaticClass(), TEXT("OnOpenDanmakuButtonClicked")},
		{UUI_DanmakuBar::StaticClass(), TEXT("OnInputTextChanged")},
		{UUI_DanmakuBar::StaticClass(), TEXT("OnSendDanmakuButtonClicked")},
		{UUI_DanmakuBar::StaticClass(), TEXT("OnInputDanmakuTextCommitted")},
		{UUI_DanmakuBar::StaticClass(), TEXT("OnSettingDanmakuButtonHovered")},
		{UUI_DanmakuBar::StaticClass(), TEXT("OnSettingDanmakuButtonUnHovered")},
		{Panel, TEXT("OnScrollCheckStateChanged")},
		{Panel, TEXT("OnTopCheckStateChanged")},
		{Panel, TEXT("OnBottomCheckStateChanged")},
		{Panel, TEXT("OnSmallCheckStateChanged")},
		{Panel, TEXT("OnNormalCheckStateChanged")},
		{Panel, TEXT("OnC_FE0302CheckStateChanged")},
		{Panel, TEXT("OnC_00CD00CheckStateChanged")},
		{Panel, TEXT("OnC_4266BECheckStateChanged")},
		{Panel, TEXT("OnC_FFFFFFCheckStateChanged")},
		{Panel, TEXT("OnInputColorTextChanged")},
	};
	for (const auto& Handler : Handlers)
	{
		TestNotNull(Handler.Name, Handler.Class->FindFunctionByName(Handler.Name));
	}
	return true;
}

#endif
