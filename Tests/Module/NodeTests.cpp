#include "StageFixture.h"

#include "Components/CanvasPanelSlot.h"
#include "Components/TextBlock.h"

#include <cmath>

namespace Flitmark
{

namespace
{

class FNodes : public FStageFixture
{
protected:
	UUI_DanmakuNode* MakeOn(float CanvasWidth, const char* Content, int Draw, EDanmakuMode Mode = EDanmakuMode::SCROLL)
	{
		Stage->SetCanvasSize(FVector2f(CanvasWidth, 1080.f));
		Stage->RunFrame(0.f);
		Rand.Give({Draw});
		UUI_DanmakuNode* Node = MakeNode(MakeData(Content, Mode));
		Node->SetPosition(FVector2D(static_cast<double>(CanvasWidth), 0.0));
		return Node;
	}
	/** How many one-second frames show it. */
	int32 CountSeconds(const UUI_DanmakuNode* Node)
	{
		int32 Count = 0;
		for (Stage->RunFrame(1.f); Node->GetParent() != nullptr; Stage->RunFrame(1.f))
		{
			++Count;
		}
		return Count;
	}
	static const UTextBlock* GetText(const UUI_DanmakuNode* Node)
	{
		return static_cast<const UTextBlock*>(Node->GetRootWidget());
	}
};

TEST_F(FNodes, TakeTheirTimeFromTheWayAndADraw)
{
	const struct
	{
		float CanvasWidth;
		const char* Content;
		int Draw;
		int32 Seconds;
		float Speed;
	} Cases[] = {
		{1920.f, "200x30", 0, 8, 265.f},
		{1920.f, "200x30", 16383, 8, 265.f},
		{1920.f, "200x30", 16384, 12, 176.666667f},
		{1920.f, "200x30", 32767, 12, 176.666667f},
		{1920.f, "200x30", 32768, 8, 265.f},
		{1920.f, "100x30", 0, 8, 252.5f},
		{1920.f, "100x30", 16384, 11, 183.636364f},
		{1280.f, "150x30", 0, 5, 286.f},
		{1280.f, "150x30", 16384, 8, 178.75f},
		{100.f, "146x30", 0, 0, INFINITY},
		{100.f, "147x30", 0, 1, 247.f},
		{100.f, "72x30", 16384, 0, INFINITY},
		{100.f, "73x30", 16384, 1, 173.f},
	};
	for (const auto& Case : Cases)
	{
		UUI_DanmakuNode* Node = MakeOn(Case.CanvasWidth, Case.Content, Case.Draw);
		SCOPED_TRACE(testing::Message() << Case.Content << " on " << Case.CanvasWidth << " with " << Case.Draw);
		EXPECT_EQ(Node->GetRollSpeed(), Case.Speed);
		EXPECT_EQ(CountSeconds(Node), Case.Seconds) << "the frame that brings exactly 0 still shows it";
	}
}

TEST_F(FNodes, EndWhereTheyHaveJustLeftTheView)
{
	UUI_DanmakuNode* Node = MakeOn(1920.f, "200x30", ShortDraw);
	RunFrames(7, 1.f);
	EXPECT_EQ(Node->GetPosition().X, 1920.0 - 7 * 265.0);
	RunFrames(1, 1.f);
	EXPECT_EQ(Node->GetPosition().X, -200.0);
	Log.TakeEvents();
	RunFrames(1, 0.001f);
	EXPECT_EQ(Node->GetPosition().X, -200.0) << "it does not move in its last frame";
	EXPECT_EQ(Log.TakeEvents(), (std::vector<std::string>{"left 1", "ended 1", "canceled 1"}));
	RunFrames(3, 1.f);
	EXPECT_TRUE(Log.TakeEvents().empty()) << "an end comes once";
}

TEST_F(FNodes, MoveByAStepInSinglePrecision)
{
	UUI_DanmakuNode* Node = MakeOn(1920.f, "100x30", LongDraw);
	Node->SetPosition(FVector2D(1000.3, 7.7));
	const float Speed = 183.636364f;
	double Expected = 1000.3;
	for (const float DeltaTime : {1.f / 60.f, 1.f / 24.f, 0.1f, 0.f})
	{
		RunFrames(1, DeltaTime);
		const float Step = DeltaTime * Speed;
		Expected -= static_cast<double>(Step);
		EXPECT_EQ(Node->GetPosition().X, Expected);
		EXPECT_EQ(Node->GetPosition().Y, 7.7);
	}
}

TEST_F(FNodes, OfOtherModesStandForTheSameTime)
{
	for (const int32 Mode : {1, 2, 3, 17, -1})
	{
		UUI_DanmakuNode* Node = MakeOn(1920.f, "200x30", ShortDraw, static_cast<EDanmakuMode>(Mode));
		RunFrames(8, 1.f);
		EXPECT_EQ(Node->GetPosition().X, 1920.0) << Mode;
		EXPECT_NE(Node->GetParent(), nullptr);
		RunFrames(1, 0.5f);
		EXPECT_EQ(Node->GetParent(), nullptr) << Mode;
	}
}

TEST_F(FNodes, StandStillWhilePaused)
{
	Rand.GiveAlways(ShortDraw);
	UUI_DanmakuNode* Node = MakeNode(MakeData("200x30"), true);
	EXPECT_EQ(Node->GetVisibility(), ESlateVisibility::Visible);
	Node->SetPosition(FVector2D(1920.0, 0.0));
	RunFrames(100, 1.f);
	EXPECT_EQ(Node->GetPosition().X, 1920.0);
	Node->Resume();
	RunFrames(3, 1.f);
	Node->Pause();
	RunFrames(100, 1.f);
	EXPECT_EQ(Node->GetPosition().X, 1920.0 - 3 * 265.0);
	Node->Resume();
	EXPECT_EQ(CountSeconds(Node), 5) << "its time stood still as well";
}

TEST_F(FNodes, WithoutDisplayTimeNeverStandNowhere)
{
	for (const char* Content : {"50x30", "0x30"})
	{
		// Speeds: infinite, and NaN on a canvas without width.
		for (const float CanvasWidth : {100.f, 0.f})
		{
			UUI_DanmakuNode* Node = MakeOn(CanvasWidth, Content, ShortDraw);
			EXPECT_FALSE(std::isfinite(Node->GetRollSpeed()));
			RunFrames(3, 0.f);
			EXPECT_EQ(Node->GetPosition().X, static_cast<double>(CanvasWidth)) << "frames without time";
			EXPECT_NE(Node->GetParent(), nullptr);
			RunFrames(1, 0.001f);
			EXPECT_EQ(Node->GetPosition().X, static_cast<double>(CanvasWidth));
			EXPECT_EQ(Node->GetParent(), nullptr);
		}
	}
}

TEST_F(FNodes, EndInAFrameOfNoNumber)
{
	UUI_DanmakuNode* Node = MakeOn(1920.f, "200x30", ShortDraw);
	RunFrames(1, NAN);
	EXPECT_EQ(Node->GetParent(), nullptr);
	EXPECT_EQ(Node->GetPosition().X, 1920.0);
}

TEST_F(FNodes, WearTheirColors)
{
	const struct
	{
		const TCHAR* Text;
		const char* Shown;
	} Cases[] = {
		{TEXT("#FE0302FF"), "FE0302FF"}, {TEXT("#FE0302"), "FE0302FF"},	   {TEXT("fe0302"), "FE0302FF"},
		{TEXT("#00CD0080"), "00CD0080"}, {TEXT("#abc"), "AABBCCFF"},	   {TEXT("#000000"), "000000FF"},
		{TEXT("#12"), "00000000"},		 {TEXT(""), "00000000"},		   {TEXT("#"), "00000000"},
		{TEXT("#12345"), "00000000"},	 {TEXT("#123456789"), "00000000"}, {TEXT("#GG8000"), "008000FF"},
	};
	for (const auto& Case : Cases)
	{
		FDanmakuData Data = MakeData("10x10");
		Data.FontColor = Case.Text;
		const FLinearColor Color = GetText(MakeNode(Data))->GetColorAndOpacity().GetSpecifiedColor();
		EXPECT_EQ(ToUtf8(Color.ToFColorSRGB().ToHex()), Case.Shown) << ToUtf8(Case.Text);
		EXPECT_EQ(Color, FLinearColor(FColor::FromHex(Case.Text)));
	}
}

TEST_F(FNodes, ShowTheirTextInTheBlueprintsFont)
{
	for (const int32 Size : {24, 0, -3, MAX_int32})
	{
		FDanmakuData Data = MakeData("10x10");
		Data.Content = TEXT("  \u5F39\u5E55 \xD83D\n  ");
		Data.FontSize = Size;
		const UTextBlock* Text = GetText(MakeNode(Data));
		EXPECT_TRUE(Text->GetText().ToString().Equals(Data.Content)) << "unchanged";
		EXPECT_EQ(Text->GetFont().Size, static_cast<float>(Size));
		EXPECT_EQ(Text->GetFont().OutlineSettings.OutlineSize, 2) << "the blueprint's";
	}
}

TEST_F(FNodes, AreMeasuredOnce)
{
	UUI_DanmakuNode* Node = MakeNode(MakeData("123.25x45.5"));
	EXPECT_EQ(Node->GetNodeSize().X, 123.25);
	EXPECT_EQ(Node->GetNodeSize().Y, 45.5);
	EXPECT_TRUE(static_cast<UCanvasPanelSlot*>(Node->Slot.Get())->GetAutoSize());
	EXPECT_EQ(Measure.NumCalls, 1);
	RunFrames(5, 0.1f);
	EXPECT_EQ(Measure.NumCalls, 1);
}

TEST_F(FNodes, ThatWereNeverStartedAreHiddenAndFrozen)
{
	UUI_DanmakuNode* Node = CreateWidget<UUI_DanmakuNode>(&Stage->GetCanvas(), GetNodeClass());
	EXPECT_EQ(Node->GetVisibility(), ESlateVisibility::Hidden);
	EXPECT_TRUE(Node->IsPaused());
	Stage->GetCanvas().AddChildToCanvas(Node);
	RunFrames(3, 1.f);
	EXPECT_NE(Node->GetParent(), nullptr);
}

TEST_F(FNodes, KeepACopyOfTheirRecordAndLanes)
{
	FDanmakuData Data = MakeData("10x10");
	UUI_DanmakuNode* Node = MakeNode(Data);
	Data.Content = TEXT("changed");
	EXPECT_EQ(ToUtf8(Node->GetData().Content), "10x10");
	UDanmakuTrack* Lanes[] = {GetTracks("Scroll")[3], GetTracks("Scroll")[1]};
	for (const int32 Index : {0, 1, 0})
	{
		Node->AddUsedTrack(Lanes[Index]);
	}
	TArray<TObjectPtr<UDanmakuTrack>> Used = Node->GetUseTracks();
	ASSERT_EQ(Used.Num(), 3);
	EXPECT_EQ(Used[0].Get(), Lanes[0]);
	EXPECT_EQ(Used[1].Get(), Lanes[1]);
	EXPECT_EQ(Used[2].Get(), Lanes[0]);
	Used.Empty();
	EXPECT_EQ(Node->GetUseTracks().Num(), 3);
}

TEST(FRecords, AreValues)
{
	FDanmakuData Data;
	EXPECT_TRUE(Data.Content.IsEmpty() && Data.FontColor.IsEmpty() && Data.UserDisplayName.IsEmpty());
	EXPECT_EQ(Data.SpawnTime.GetTicks(), 0);
	EXPECT_EQ(Data.PostDate.GetTicks(), 0);
	Data.Content = TEXT("a");
	Data.Mode = static_cast<EDanmakuMode>(99);
	FDanmakuData Copy = Data;
	Copy.Content = TEXT("b");
	EXPECT_EQ(ToUtf8(Data.Content), "a");
	const FDanmakuData Moved = std::move(Data);
	EXPECT_EQ(ToUtf8(Moved.Content), "a");
	EXPECT_EQ(static_cast<int32>(Moved.Mode), 99);
	EXPECT_TRUE(Data.Content.IsEmpty()); // NOLINT(bugprone-use-after-move): what a move leaves is promised.
	const FDanmakuTrackData Group;
	EXPECT_TRUE(Group.Tracks.IsEmpty());
	EXPECT_EQ(Group.Area, 75);
}

} // namespace

} // namespace Flitmark
