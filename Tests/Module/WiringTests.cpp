#include "StageFixture.h"

#include "Components/Button.h"
#include "Components/CheckBox.h"
#include "Components/EditableText.h"

namespace Flitmark
{

namespace
{

class FWiring : public FStageFixture
{
protected:
	void Send(const char* Text = "200x30")
	{
		FindInBar<UEditableText>(TEXT("InputDanmakuText"))->TypeText(FText::FromString(FromUtf8(Text)));
		FindInBar<UButton>(TEXT("SendDanmakuButton"))->Click();
	}
	void Toggle(bool bOn) { FindInBar<UCheckBox>(TEXT("OpenDanmakuButton"))->Toggle(bOn); }
	bool IsBarOpen() const { return FindInBar<UButton>(TEXT("SendDanmakuButton"))->GetIsEnabled(); }
	std::size_t NumMade() const { return Log.GetNodes().size(); }
	UMediaPlayer* GetPlayer() const
	{
		const UUI_Danmaku& Overlay = Stage->GetOverlay();
		return Cast<UMediaPlayer>(
			Overlay.GetClass()->FindPropertyByName(TEXT("MediaPlayer"))->GetObjectValue(&Overlay));
	}
	UPanelWidget* GetScreen() const { return Stage->GetBar().GetParent(); }
};

TEST_F(FWiring, ShowsASentCommentAtOnceAndAgainInItsSecond)
{
	Load({{12.0, "10x10 loaded"}});
	GoTo(12.3);
	ASSERT_EQ(NumMade(), 1u);
	Send("200x30 \u5F39");
	ASSERT_EQ(NumMade(), 2u);
	const UUI_DanmakuNode* Sent = GetLastNode();
	EXPECT_TRUE(Stage->IsViewerComment(*Sent));
	EXPECT_EQ(ToUtf8(Sent->GetData().Content), "200x30 \u5F39");
	EXPECT_EQ(Sent->GetData().SpawnTime.GetTicks(), 123'000'000);
	EXPECT_EQ(Sent->GetData().Mode, EDanmakuMode::SCROLL);
	EXPECT_EQ(Sent->GetData().FontSize, 24);
	EXPECT_EQ(ToUtf8(Sent->GetData().FontColor), "#FFFFFFFF");
	EXPECT_EQ(Sent->GetPosition().X, 1920.0);
	GoTo(12.9);
	EXPECT_EQ(NumMade(), 2u) << "its second is not new";
	GoTo(13.0);
	GoTo(12.0);
	ASSERT_EQ(NumMade(), 4u);
	EXPECT_EQ(ToUtf8(Log.GetNodes()[2]->GetData().Content), "10x10 loaded");
	EXPECT_EQ(ToUtf8(Log.GetNodes()[3]->GetData().Content), "200x30 \u5F39") << "behind what was filed before";
	EXPECT_FALSE(Stage->IsViewerComment(*Log.GetNodes()[3]));
	Load({});
	GoTo(13.0);
	GoTo(12.0);
	EXPECT_EQ(NumMade(), 4u) << "a document takes the place of it all";
}

TEST_F(FWiring, ShowsAPausedCommentWhilePaused)
{
	Rand.GiveAlways(ShortDraw);
	Stage->GetOverlay().Pause();
	Send();
	ASSERT_EQ(NumMade(), 1u);
	RunFrames(20, 1.f);
	EXPECT_EQ(GetLastNode()->GetPosition().X, 1920.0);
	Stage->GetOverlay().Resume();
	RunFrames(1, 1.f);
	EXPECT_EQ(GetLastNode()->GetPosition().X, 1920.0 - 265.0);
}

TEST_F(FWiring, HoldsTheCheckBoxBackUntilThereAreLanes)
{
	const struct
	{
		std::vector<bool> Toggles;
		bool bOpen;
		ESlateVisibility Canvas;
	} Cases[] = {
		{{}, true, ESlateVisibility::Visible},
		{{false}, false, ESlateVisibility::Hidden},
		{{false, true}, true, ESlateVisibility::Visible},
		{{false, true, false}, false, ESlateVisibility::Hidden},
	};
	for (const auto& Case : Cases)
	{
		SCOPED_TRACE(Case.Toggles.size());
		Rebuild(MakeOptions(FVector2f(0.f, 0.f)));
		RunFrames(2, 0.1f);
		for (const bool bOn : Case.Toggles)
		{
			Toggle(bOn);
			EXPECT_EQ(IsBarOpen(), bOn);
		}
		EXPECT_EQ(Stage->GetCanvas().GetVisibility(), ESlateVisibility::Visible) << "no lanes yet";
		Stage->SetCanvasSize(FVector2f(1920.f, 1080.f));
		GoTo(0.0);
		EXPECT_EQ(Stage->GetCanvas().GetVisibility(), Case.Canvas);
		Load({{1.0}, {2.0}});
		GoTo(1.0);
		EXPECT_EQ(NumMade(), Case.bOpen ? 1u : 0u);
		Toggle(false);
		Toggle(true);
		GoTo(2.0);
		EXPECT_EQ(NumMade(), Case.bOpen ? 2u : 1u) << "switched on again";
	}
}

TEST_F(FWiring, IgnoresWhatIsSentBeforeThereAreLanes)
{
	Rebuild(MakeOptions(FVector2f(0.f, 0.f)));
	RunFrames(2, 0.1f);
	Send();
	EXPECT_EQ(ToUtf8(FindInBar<UEditableText>(TEXT("InputDanmakuText"))->GetText().ToString()), "");
	Stage->SetCanvasSize(FVector2f(1920.f, 1080.f));
	GoTo(1.0);
	GoTo(0.0);
	EXPECT_EQ(NumMade(), 0u) << "not held back";
	Send();
	EXPECT_EQ(NumMade(), 1u);
}

TEST_F(FWiring, IgnoresWhatIsSentWithoutAPlayer)
{
	Rebuild(MakeOptions(FVector2f(1920.f, 1080.f)));
	Stage->GetOverlay().Init(nullptr, &Stage->GetBar(), &Stage->GetPanel());
	RunFrames(2, 0.1f);
	Send();
	Toggle(false);
	Toggle(true);
	EXPECT_EQ(NumMade(), 0u);
}

TEST_F(FWiring, IgnoresWhatIsSentWithoutAPanel)
{
	UMediaPlayer* Player = Keep(NewObject<UMediaPlayer>());
	Stage->GetOverlay().Init(Player, &Stage->GetBar(), nullptr);
	Send();
	FindInBar<UButton>(TEXT("DanmakuNodeSettingButton"))->Hover();
	FindInBar<UButton>(TEXT("DanmakuNodeSettingButton"))->Unhover();
	EXPECT_EQ(NumMade(), 0u);
}

TEST_F(FWiring, IgnoresWhatIsSentAfterTheOverlaysEnd)
{
	Keep(&Stage->GetOverlay())->RemoveFromParent();
	Send();
	Toggle(false);
	EXPECT_FALSE(IsBarOpen());
	Toggle(true);
	EXPECT_TRUE(IsBarOpen());
	CollectGarbage();
	Send();
	EXPECT_EQ(NumMade(), 0u);
}

TEST_F(FWiring, OutlivesACollectedOverlay)
{
	// A separate overlay, completely gone by the time the bar sends.
	UUI_Danmaku* Overlay = CreateWidget<UUI_Danmaku>(&Stage->GetOverlay(), Stage->GetOverlay().GetClass());
	const TWeakObjectPtr<UUI_Danmaku> Weak(Overlay);
	Stage->GetOverlay().Init(nullptr, nullptr, nullptr);
	Overlay->Init(Keep(NewObject<UMediaPlayer>()), &Stage->GetBar(), &Stage->GetPanel());
	CollectGarbage();
	ASSERT_EQ(Weak.Get(), nullptr);
	Send();
	Toggle(false);
	EXPECT_EQ(NumMade(), 0u);
}

TEST_F(FWiring, SendsOncePerInitHoweverOftenTheBarIsConstructed)
{
	UUI_DanmakuBar* Bar = Keep(&Stage->GetBar());
	UPanelWidget* Screen = GetScreen();
	for (int32 Round = 0; Round < 2; ++Round)
	{
		Bar->RemoveFromParent();
		Screen->AddChild(Bar);
	}
	Send();
	EXPECT_EQ(NumMade(), 1u) << "constructed three times";
	UUI_Danmaku& Overlay = Stage->GetOverlay();
	Overlay.Init(GetPlayer(), &Stage->GetBar(), &Stage->GetPanel());
	Send();
	EXPECT_EQ(NumMade(), 3u) << "bound twice";
}

TEST_F(FWiring, SurvivesInitWithNothing)
{
	UUI_Danmaku& Overlay = Stage->GetOverlay();
	Overlay.Init(nullptr, &Stage->GetBar(), &Stage->GetPanel());
	Toggle(false);
	EXPECT_FALSE(IsBarOpen());
	Toggle(true);
	EXPECT_TRUE(IsBarOpen());
	EXPECT_EQ(Stage->GetCanvas().GetVisibility(), ESlateVisibility::SelfHitTestInvisible);
	Send();
	EXPECT_EQ(NumMade(), 0u) << "no player, no URL";
	// The previous bar is still bound, but the overlay no longer knows it.
	Overlay.Init(nullptr, nullptr, nullptr);
	Toggle(false);
	EXPECT_EQ(Stage->GetCanvas().GetVisibility(), ESlateVisibility::Hidden);
	Toggle(true);
	RunFrames(2, 0.1f);
}

/** A class without a blueprint has no bound widgets, and a widget without a player context is not initialized. */
TEST_F(FWiring, SurvivesWidgetsThatAreNotBound)
{
	UPanelWidget* Screen = GetScreen();
	UClass* const Natives[] = {UUI_Danmaku::StaticClass(), UUI_DanmakuBar::StaticClass(),
							   UUI_DanmakuNodeSetting::StaticClass(), UUI_DanmakuNode::StaticClass()};
	for (UClass* Native : Natives)
	{
		Screen->AddChild(CreateWidget<UUserWidget>(&Stage->GetOverlay(), Native));
	}
	RunFrames(2, 0.1f);
	UUI_DanmakuNode* Node =
		CreateWidget<UUI_DanmakuNode>(&Stage->GetOverlay(), TSubclassOf<UUserWidget>(UUI_DanmakuNode::StaticClass()));
	Node->Init(MakeData("200x30"), &Stage->GetCanvas(), false);
	EXPECT_EQ(Node->GetNodeSize().X, 0.0);

	const UUI_DanmakuNodeSetting* Panel = Keep(NewObject<UUI_DanmakuNodeSetting>());
	EXPECT_EQ(Panel->GetModel(), EDanmakuMode::SCROLL);
	EXPECT_EQ(Panel->GetFontSize(), 24);
	EXPECT_EQ(ToUtf8(Panel->GetFontColor()), "#FFFFFFFF");
}

TEST_F(FWiring, ClosesAndOpensTheLanes)
{
	Load({{0.0}, {1.0}, {2.0}, {3.0}});
	GoTo(0.0);
	Toggle(false);
	EXPECT_FALSE(IsBarOpen());
	EXPECT_EQ(Stage->GetCanvas().GetVisibility(), ESlateVisibility::Hidden);
	EXPECT_TRUE(GetShown().empty());
	GoTo(1.0);
	EXPECT_EQ(NumMade(), 1u) << "the second passes";
	Stage->SetPlaying(false);
	Toggle(true);
	EXPECT_TRUE(IsBarOpen());
	EXPECT_EQ(Stage->GetCanvas().GetVisibility(), ESlateVisibility::SelfHitTestInvisible);
	GoTo(2.0);
	EXPECT_EQ(NumMade(), 1u) << "open, and paused as the player is";
	Toggle(false);
	Stage->SetPlaying(true);
	Toggle(true);
	GoTo(3.0);
	EXPECT_EQ(NumMade(), 2u);
}

TEST_F(FWiring, OpensPausedOverlaysLanesAlone)
{
	Load({{0.0, "200x30"}, {1.0}, {2.0}});
	GoTo(0.0);
	Stage->GetOverlay().Pause();
	Toggle(false);
	Toggle(true);
	GoTo(1.0);
	EXPECT_EQ(NumMade(), 1u) << "the overlay itself is paused until Resume";
	Send();
	EXPECT_FALSE(GetLastNode()->IsPaused()) << "its lanes are not";
	Stage->GetOverlay().Resume();
	GoTo(2.0);
	EXPECT_EQ(NumMade(), 3u);
}

} // namespace

} // namespace Flitmark
