#include "DanmakuTrackManager.h"
#include "FlitmarkOverlay.h"
#include "Misc/AutomationTest.h"
#include "TestScreen.h"
#include "UI_DanmakuNode.h"

#if WITH_DEV_AUTOMATION_TESTS

namespace FlitmarkTests
{

constexpr double Pitch = 15.12;

/** In canvas units: the engine stores positions as floats. */
constexpr double Tolerance = 1.e-3;

} // namespace FlitmarkTests

IMPLEMENT_SIMPLE_AUTOMATION_TEST(FFlitmarkFirstFreeLaneTest, "Flitmark.Placement.FirstFreeLane",
								 EAutomationTestFlags::ApplicationContextMask | EAutomationTestFlags::ProductFilter)

bool FFlitmarkFirstFreeLaneTest::RunTest(const FString&)
{
	using namespace FlitmarkTests;
	FTestScreen Screen;
	FTestOverlay Test(Screen);
	if (!TestNotNull(TEXT("the lanes"), Test.Manager))
	{
		return false;
	}
	TestEqual(TEXT("scroll lanes in three quarters of the height"), Test.Manager->GetTrackNum(), 53);
	const struct
	{
		const TCHAR* What;
		EDanmakuMode Mode;
		double Width;
		double Height;
		int32 Lanes;
		double X;
		double Y;
	} Steps[] = {
		{TEXT("scroll 1"), EDanmakuMode::SCROLL, 100.0, 30.0, 2, 1920.0, 0.0},
		{TEXT("scroll 2"), EDanmakuMode::SCROLL, 100.0, 30.0, 2, 1920.0, 2 * Pitch},
		{TEXT("scroll 3, as high as a lane"), EDanmakuMode::SCROLL, 100.0, Pitch, 1, 1920.0, 4 * Pitch},
		{TEXT("scroll 4"), EDanmakuMode::SCROLL, 300.0, 20.0, 2, 1920.0, 5 * Pitch},
		{TEXT("top 1"), EDanmakuMode::TOP, 100.0, 30.0, 2, 910.0, 0.0},
		{TEXT("top 2"), EDanmakuMode::TOP, 301.0, 30.0, 2, 809.5, 2 * Pitch},
		{TEXT("top 3, without height"), EDanmakuMode::TOP, 10.0, 0.0, 0, 955.0, 4 * Pitch},
		{TEXT("top 4"), EDanmakuMode::TOP, 10.0, 15.0, 1, 955.0, 4 * Pitch},
		// The product with the reciprocal of the pitch is a bit above 3.
		{TEXT("top 5"), EDanmakuMode::TOP, 10.0, 45.36, 4, 955.0, 5 * Pitch},
		{TEXT("bottom 1"), EDanmakuMode::BOTTOM, 100.0, 30.0, 2, 910.0, 1050.0},
		{TEXT("bottom 2"), EDanmakuMode::BOTTOM, 100.0, 32.0, 3, 910.0, 1080.0 - 2 * Pitch - 32.0},
		{TEXT("bottom 3, wider than the canvas"), EDanmakuMode::BOTTOM, 2500.0, 15.0, 1, -290.0,
		 1080.0 - 5 * Pitch - 15.0},
	};
	for (const auto& Step : Steps)
	{
		const UUI_DanmakuNode* Node = Test.Spawn(Step.Width, Step.Height, Step.Mode);
		if (TestNotNull(Step.What, Node))
		{
			TestEqual(Step.What, Node->GetUseTracks().Num(), Step.Lanes);
			TestEqual(Step.What, Node->GetPosition().X, Step.X, Tolerance);
			TestEqual(Step.What, Node->GetPosition().Y, Step.Y, Tolerance);
		}
	}
	return true;
}

IMPLEMENT_SIMPLE_AUTOMATION_TEST(FFlitmarkFullLanesTest, "Flitmark.Placement.FullLanes",
								 EAutomationTestFlags::ApplicationContextMask | EAutomationTestFlags::ProductFilter)

bool FFlitmarkFullLanesTest::RunTest(const FString&)
{
	FTestScreen Screen;
	FTestOverlay Test(Screen);
	TestNull(TEXT("higher than the group"), Test.Spawn(10.0, 802.0, EDanmakuMode::TOP));
	TestNull(TEXT("higher than the group, the viewer's"), Test.Spawn(10.0, 802.0, EDanmakuMode::TOP, true));
	TestNull(TEXT("a mode that is not shown"), Test.Spawn(10.0, 15.0, EDanmakuMode::REVERSE));
	for (int32 Lane = 0; Lane < 17; ++Lane)
	{
		TestNotNull(TEXT("a bottom lane"), Test.Spawn(100.0, 15.0, EDanmakuMode::BOTTOM));
	}
	TestNull(TEXT("no bottom lane is left"), Test.Spawn(100.0, 15.0, EDanmakuMode::BOTTOM));
	const UUI_DanmakuNode* Own = Test.Spawn(100.0, 15.0, EDanmakuMode::BOTTOM, true);
	if (TestNotNull(TEXT("the viewer's own goes over others"), Own))
	{
		TestEqual(TEXT("its lanes"), Own->GetUseTracks().Num(), 1);
	}
	Test.Overlay->Empty();
	TestEqual(TEXT("comments after Empty"), Test.CountShown(), 0);
	TestNotNull(TEXT("a free lane after Empty"), Test.Spawn(100.0, 15.0, EDanmakuMode::BOTTOM));
	return true;
}

IMPLEMENT_SIMPLE_AUTOMATION_TEST(FFlitmarkPausedTest, "Flitmark.Placement.Paused",
								 EAutomationTestFlags::ApplicationContextMask | EAutomationTestFlags::ProductFilter)

bool FFlitmarkPausedTest::RunTest(const FString&)
{
	FTestScreen Screen;
	FTestOverlay Test(Screen);
	Test.Overlay->Pause();
	TestNull(TEXT("a comment of the schedule"), Test.Spawn(100.0, 30.0, EDanmakuMode::SCROLL));
	const UUI_DanmakuNode* Own = Test.Spawn(100.0, 30.0, EDanmakuMode::SCROLL, true);
	if (!TestNotNull(TEXT("the viewer's own"), Own))
	{
		return false;
	}
	Screen.RunFrame(1.f);
	TestEqual(TEXT("it stands"), Own->GetPosition().X, 1920.0);
	Test.Overlay->Resume();
	Screen.RunFrame(1.f);
	const double Step = static_cast<double>(Own->GetRollSpeed());
	TestEqual(TEXT("it flies"), Own->GetPosition().X, 1920.0 - Step, FlitmarkTests::Tolerance);
	return true;
}

#endif
