#include "DanmakuTrackManager.h"
#include "Misc/AutomationTest.h"
#include "TestScreen.h"
#include "UI_DanmakuNode.h"

#if WITH_DEV_AUTOMATION_TESTS

namespace FlitmarkTests
{

constexpr double LanePitch = 15.12;

/** The lane of a scrolling or top comment. */
static int32 GetLane(const UUI_DanmakuNode* Node)
{
	return FMath::RoundToInt32(Node->GetPosition().Y / LanePitch);
}

/** Whether two comments share a lane, and one covers the other. */
static bool Overlap(const UUI_DanmakuNode* First, const UUI_DanmakuNode* Second)
{
	const double Slack = 0.01;
	const bool bBeside = First->GetPosition().X + First->GetNodeSize().X <= Second->GetPosition().X + Slack ||
						 Second->GetPosition().X + Second->GetNodeSize().X <= First->GetPosition().X + Slack;
	const bool bAbove = GetLane(First) + First->GetUseTracks().Num() <= GetLane(Second) ||
						GetLane(Second) + Second->GetUseTracks().Num() <= GetLane(First);
	return !bBeside && !bAbove;
}

/** Whole seconds on the screen, short or long, for a distance in canvas units. */
static double GetSeconds(double Way, bool bLong)
{
	return FMath::FloorToDouble((bLong ? 0.0058 : 0.00406) * Way);
}

} // namespace FlitmarkTests

IMPLEMENT_SIMPLE_AUTOMATION_TEST(FFlitmarkReplayStandingTest, "Flitmark.Replay.Standing",
								 EAutomationTestFlags::ApplicationContextMask | EAutomationTestFlags::ProductFilter)

bool FFlitmarkReplayStandingTest::RunTest(const FString&)
{
	FTestScreen Screen;
	FTestOverlay Test(Screen);
	// 1920 + 80 = 2000 units: 8 seconds or 11.
	TestNotNull(TEXT("top"), Test.Spawn(80.0, 30.0, EDanmakuMode::TOP));
	TestNotNull(TEXT("bottom"), Test.Spawn(80.0, 30.0, EDanmakuMode::BOTTOM));
	for (int32 Second = 1; Second <= 8; ++Second)
	{
		Screen.RunFrame(1.f);
		TestEqual(TEXT("comments up to second 8"), Test.CountShown(), 2);
	}
	TestEqual(TEXT("a standing comment's place"), Test.GetShown(0)->GetPosition().X, 920.0, 1.e-3);
	for (int32 Second = 9; Second <= 12; ++Second)
	{
		Screen.RunFrame(1.f);
	}
	TestEqual(TEXT("comments after second 11"), Test.CountShown(), 0);
	const UUI_DanmakuNode* Next = Test.Spawn(80.0, 30.0, EDanmakuMode::TOP);
	TestTrue(TEXT("the first lane is free again"), Next != nullptr && FlitmarkTests::GetLane(Next) == 0);
	return true;
}

IMPLEMENT_SIMPLE_AUTOMATION_TEST(FFlitmarkReplayScrollTest, "Flitmark.Replay.Scroll",
								 EAutomationTestFlags::ApplicationContextMask | EAutomationTestFlags::ProductFilter)

bool FFlitmarkReplayScrollTest::RunTest(const FString&)
{
	using namespace FlitmarkTests;
	const float Frame = 0.125f;
	FTestScreen Screen;
	FTestOverlay Test(Screen);
	int32 Placed = 0;
	for (int32 Index = 0; Index < 160; ++Index)
	{
		// Widths of 60 to 654 units, heights of one to three lanes; more comments than fit, so that some find no place.
		for (int32 Each = 0; Each < (Index < 80 ? 4 : 0); ++Each)
		{
			const int32 Number = Index * 4 + Each;
			const double Width = 60.0 + Number * 37 % 199 * 3;
			const UUI_DanmakuNode* Node = Test.Spawn(Width, 12.0 + Number * 7 % 29, EDanmakuMode::SCROLL);
			if (Node == nullptr)
			{
				continue;
			}
			++Placed;
			const double Speed = static_cast<double>(Node->GetRollSpeed());
			const double Way = FTestScreen::Width + Width;
			const double Short = Way / GetSeconds(Way, false);
			const double Long = Way / GetSeconds(Way, true);
			TestTrue(TEXT("one of two speeds"), FMath::Abs(Speed - Short) < 0.01 || FMath::Abs(Speed - Long) < 0.01);
			TestEqual(TEXT("it starts at the right edge"), Node->GetPosition().X, FTestScreen::Width, 1.e-3);
		}
		TArray<UUI_DanmakuNode*> Nodes;
		TArray<double> Expected;
		for (int32 Each = 0; Each < Test.CountShown(); ++Each)
		{
			Nodes.Add(Test.GetShown(Each));
			const double Step = static_cast<double>(Frame * Nodes.Last()->GetRollSpeed());
			Expected.Add(Nodes.Last()->GetPosition().X - Step);
		}
		Screen.RunFrame(Frame);
		for (int32 Each = 0; Each < Nodes.Num(); ++Each)
		{
			if (Nodes[Each]->GetParent() == nullptr)
			{
				continue;
			}
			TestEqual(TEXT("a frame's way"), Nodes[Each]->GetPosition().X, Expected[Each], 0.01);
		}
	}
	TestTrue(TEXT("some of the comments, but not all"), Placed > 100 && Placed < 320);
	return true;
}

IMPLEMENT_SIMPLE_AUTOMATION_TEST(FFlitmarkReplayCatchUpTest, "Flitmark.Replay.NoneCatchesUp",
								 EAutomationTestFlags::ApplicationContextMask | EAutomationTestFlags::ProductFilter)

bool FFlitmarkReplayCatchUpTest::RunTest(const FString&)
{
	FTestScreen Screen;
	FTestOverlay Test(Screen);
	for (int32 Index = 0; Index < 240; ++Index)
	{
		// All one lane high, because only the first lane of a run is checked.
		if (Index < 160)
		{
			Test.Spawn(60.0 + Index * 37 % 199 * 3, 15.0, EDanmakuMode::SCROLL);
			Test.Spawn(60.0 + Index * 53 % 199 * 3, 15.0, EDanmakuMode::SCROLL);
		}
		Screen.RunFrame(0.1f);
		for (int32 First = 0; First < Test.CountShown(); ++First)
		{
			for (int32 Second = First + 1; Second < Test.CountShown(); ++Second)
			{
				if (FlitmarkTests::Overlap(Test.GetShown(First), Test.GetShown(Second)))
				{
					AddError(FString(TEXT("two comments overlap in frame ")) + FString::FromInt(Index));
					return false;
				}
			}
		}
	}
	TestTrue(TEXT("the last ones fly"), Test.CountShown() > 0);
	return true;
}

#endif
