#include "FlitmarkOverlay.h"
#include "Misc/AutomationTest.h"
#include "TestScreen.h"
#include "UI_DanmakuNode.h"

#if WITH_DEV_AUTOMATION_TESTS

namespace FlitmarkTests
{

/** A comment with every key, so that the engine logs nothing about it. */
static FString WriteComment(const TCHAR* SpawnTicks, const TCHAR* Content)
{
	return FString(TEXT("{\"danmaku_id\":1,\"post_id\":2,\"user_id\":3,\"user_display_name\":\"ann\","
						"\"danmaku_post_date\":\"2024.2.3-4.5.6\",\"danmaku_spawn_time\":")) +
		   SpawnTicks + TEXT(",\"danmaku_content\":\"") + Content +
		   TEXT("\",\"danmaku_mode\":1,\"danmaku_font_size\":18,\"danmaku_font_color\":\"#FE0302\"}");
}

/** Loads a document and enters second 0 again. */
static void Play(FTestScreen& Screen, FTestOverlay& Test, const FString& Document)
{
	Test.Overlay->Empty();
	Test.Overlay->LoadDanmaku(Document);
	Test.Overlay->RestartSecond();
	Screen.RunFrame(0.f);
}

} // namespace FlitmarkTests

IMPLEMENT_SIMPLE_AUTOMATION_TEST(FFlitmarkLoaderRecordTest, "Flitmark.Loader.ReadsEveryKey",
								 EAutomationTestFlags::ApplicationContextMask | EAutomationTestFlags::ProductFilter)

bool FFlitmarkLoaderRecordTest::RunTest(const FString&)
{
	FTestScreen Screen;
	FTestOverlay Test(Screen);
	const FString Comment = FlitmarkTests::WriteComment(TEXT("9999999"), TEXT("Hi"));
	FlitmarkTests::Play(Screen, Test, FString(TEXT("{\"datas\":[")) + Comment + TEXT("]}"));
	const UUI_DanmakuNode* Node = Test.GetShown(0);
	if (!TestNotNull(TEXT("the comment"), Node))
	{
		return false;
	}
	const FDanmakuData& Data = Node->GetData();
	TestEqual(TEXT("danmaku_id"), Data.DanmakuID, 1);
	TestEqual(TEXT("post_id"), Data.PostID, 2);
	TestEqual(TEXT("user_id"), Data.UserID, 3);
	TestEqual(TEXT("user_display_name"), Data.UserDisplayName, FString(TEXT("ann")));
	TestTrue(TEXT("danmaku_post_date"), Data.PostDate.GetTicks() == 638425299060000000);
	TestTrue(TEXT("danmaku_spawn_time"), Data.SpawnTime.GetTicks() == 9999999);
	TestTrue(TEXT("danmaku_content"), Data.Content.Equals(TEXT("Hi")));
	TestTrue(TEXT("danmaku_mode"), Data.Mode == EDanmakuMode::TOP);
	TestEqual(TEXT("danmaku_font_size"), Data.FontSize, 18);
	TestEqual(TEXT("danmaku_font_color"), Data.FontColor, FString(TEXT("#FE0302")));
	return true;
}

IMPLEMENT_SIMPLE_AUTOMATION_TEST(FFlitmarkLoaderSecondTest, "Flitmark.Loader.FilesUnderTheWholeSecond",
								 EAutomationTestFlags::ApplicationContextMask | EAutomationTestFlags::ProductFilter)

bool FFlitmarkLoaderSecondTest::RunTest(const FString&)
{
	FTestScreen Screen;
	FTestOverlay Test(Screen);
	FString Document = TEXT("{\"datas\":[");
	const struct
	{
		const TCHAR* Ticks;
		const TCHAR* Content;
	} Comments[] = {
		{TEXT("9999999"), TEXT("a")}, {TEXT("10000000"), TEXT("-")},  {TEXT("-5000000"), TEXT("b")},
		{TEXT("0"), TEXT("c")},		  {TEXT("-10000000"), TEXT("-")}, {TEXT("4000000"), TEXT("d")},
	};
	for (const auto& Comment : Comments)
	{
		Document = Document + FlitmarkTests::WriteComment(Comment.Ticks, Comment.Content) + TEXT(",");
	}
	FlitmarkTests::Play(Screen, Test, Document.Left(Document.Len() - 1) + TEXT("]}"));
	FString Shown;
	for (int32 Index = 0; Index < Test.CountShown(); ++Index)
	{
		Shown = Shown + Test.GetShown(Index)->GetData().Content;
	}
	TestEqual(TEXT("the comments of second 0, in order"), Shown, FString(TEXT("abcd")));
	// A text that is not a document clears the schedule.
	FlitmarkTests::Play(Screen, Test, TEXT("{\"datas\":[{}]"));
	TestEqual(TEXT("comments of a broken document"), Test.CountShown(), 0);
	return true;
}

#endif
