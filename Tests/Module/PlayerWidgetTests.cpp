#include "SentListener.h"
#include "StageFixture.h"

#include "Components/Button.h"
#include "Components/CheckBox.h"
#include "Components/EditableText.h"
#include "Components/Image.h"
#include "Engine/World.h"
#include "FlitmarkPlayer.h"
#include "MediaTexture.h"

#include <filesystem>
#include <fstream>

void USentListener::OnSent(const FString& VideoURL, FTimespan Time, const FString& Text, EFlitmarkCommentMode Mode,
						   int32 FontSize, FLinearColor Color)
{
	++Count;
	LastUrl = VideoURL;
	LastTime = Time;
	LastText = Text;
	LastMode = Mode;
	LastFontSize = FontSize;
	LastColor = Color;
}

namespace Flitmark
{

namespace
{

class FPlayerWidget : public FStageFixture
{
protected:
	/** A stage whose overlay has not been laid out yet. */
	FPlayerWidget() { Rebuild(MakeOptions(FVector2f(1920.f, 1080.f))); }

	UFlitmarkPlayer& Player() const { return Stage->GetScreen(); }
	UMediaPlayer* MediaPlayer() const
	{
		const UFlitmarkPlayer& Widget = Player();
		return Cast<UMediaPlayer>(Widget.GetClass()->FindPropertyByName(TEXT("MediaPlayer"))->GetObjectValue(&Widget));
	}
	static FString Document(const std::vector<FTestComment>& Comments) { return FromUtf8(WriteDocument(Comments)); }
	void Send(const TCHAR* Text)
	{
		FindInBar<UEditableText>(TEXT("InputDanmakuText"))->TypeText(FText::FromString(Text));
		FindInBar<UButton>(TEXT("SendDanmakuButton"))->Click();
	}
};

TEST_F(FPlayerWidget, HoldsADocumentBackUntilTheOverlayTakesIt)
{
	Stage->SetMediaTime(0);
	Player().LoadComments(Document({{9.0}}));
	Player().LoadComments(Document({{0.5}, {0.9}, {1.0}}));
	EXPECT_EQ(GetShown().size(), 0u);
	RunFrames(2, 0.f);
	EXPECT_EQ(GetShown().size(), 2u) << "the second at hand is not missed";
	RunFrames(3, 0.f);
	EXPECT_EQ(GetShown().size(), 2u) << "nor brought twice";
	Player().LoadComments(Document({{0.1, "60x20", 1}}));
	RunFrames(1, 0.f);
	EXPECT_EQ(GetShown().size(), 3u);
	GoTo(1.0);
	EXPECT_EQ(GetShown().size(), 3u) << "the document before is gone";
}

TEST_F(FPlayerWidget, ReadsAFileOrSaysThatItCannot)
{
	const std::filesystem::path Path = std::filesystem::path(testing::TempDir()) / "player-widget-弹幕.json";
	std::ofstream(Path) << WriteDocument({{0.0}});
	EXPECT_TRUE(Player().LoadCommentsFromFile(FromUtf8(Path.string())));
	EXPECT_FALSE(Player().LoadCommentsFromFile(FromUtf8(testing::TempDir())));
	EXPECT_FALSE(Player().LoadCommentsFromFile(FromUtf8(Path.string() + ".missing")));
	std::filesystem::remove(Path);
	RunFrames(2, 0.f);
	EXPECT_EQ(GetShown().size(), 1u) << "a failed load takes nothing away";
}

TEST_F(FPlayerWidget, PausesAlsoWhatIsNotThereYet)
{
	Player().LoadComments(Document({{0.0}, {1.0}}));
	Player().Pause();
	EXPECT_FALSE(MediaPlayer()->IsPlaying());
	RunFrames(3, 0.f);
	EXPECT_EQ(GetShown().size(), 0u);
	Player().Play();
	EXPECT_TRUE(MediaPlayer()->IsPlaying());
	RunFrames(1, 0.1f);
	ASSERT_EQ(GetShown().size(), 1u);
	// Whoever pauses the media player pauses the comments.
	MediaPlayer()->Pause();
	const double Stopped = GetShown()[0]->GetPosition().X;
	RunFrames(2, 0.1f);
	EXPECT_EQ(GetShown()[0]->GetPosition().X, Stopped);
	MediaPlayer()->Play();
	RunFrames(2, 0.1f);
	EXPECT_LT(GetShown()[0]->GetPosition().X, Stopped);
}

TEST_F(FPlayerWidget, SeekingTakesAwayTheOldPlaceAndBringsTheNew)
{
	Player().LoadComments(Document({{0.0}, {5.0}, {5.5}}));
	RunFrames(2, 0.f);
	ASSERT_EQ(GetShown().size(), 1u);
	Player().Seek(FTimespan::FromSeconds(5.9));
	EXPECT_EQ(MediaPlayer()->GetTime(), FTimespan::FromSeconds(5.9));
	EXPECT_EQ(GetShown().size(), 0u);
	RunFrames(2, 0.f);
	EXPECT_EQ(GetShown().size(), 2u);
	// Within the same second, too.
	Player().Seek(FTimespan::FromSeconds(5.1));
	RunFrames(2, 0.f);
	EXPECT_EQ(GetShown().size(), 2u);
	Player().ClearComments();
	EXPECT_EQ(GetShown().size(), 0u);
}

TEST_F(FPlayerWidget, ReportsWhatTheViewerSends)
{
	USentListener* Listener = Keep(NewObject<USentListener>());
	Player().OnCommentSent.AddDynamic(Listener, &USentListener::OnSent);
	RunFrames(1, 0.f);
	FindInPanel<UCheckBox>(TEXT("Top"))->OnCheckStateChanged.Broadcast(true);
	FindInPanel<UCheckBox>(TEXT("Small"))->OnCheckStateChanged.Broadcast(true);
	FindInPanel<UCheckBox>(TEXT("C_FE0302"))->OnCheckStateChanged.Broadcast(true);
	Stage->SetMediaTime(65'5000000);
	Send(TEXT("70x20"));
	ASSERT_EQ(Listener->Count, 1);
	EXPECT_EQ(ToUtf8(Listener->LastUrl), "file:///test");
	EXPECT_EQ(Listener->LastTime.GetTicks(), 65'5000000);
	EXPECT_EQ(ToUtf8(Listener->LastText), "70x20");
	EXPECT_EQ(Listener->LastMode, EFlitmarkCommentMode::Top);
	EXPECT_EQ(Listener->LastFontSize, 18);
	EXPECT_EQ(Listener->LastColor.ToFColorSRGB(), FColor(0xFE, 0x03, 0x02));
	EXPECT_EQ(GetShown().size(), 1u);
}

TEST_F(FPlayerWidget, OpenedAgainDoesNothingTwice)
{
	USentListener* Listener = Keep(NewObject<USentListener>());
	Player().OnCommentSent.AddDynamic(Listener, &USentListener::OnSent);
	UMediaTexture* Texture = Keep(NewObject<UMediaTexture>());
	EXPECT_EQ(Cast<UMediaTexture>(Player().Video->GetBrush().GetResourceObject())->GetMediaPlayer(), MediaPlayer());
	for (int32 Round = 0; Round < 3; ++Round)
	{
		Player().Open(MediaPlayer(), Texture);
		RunFrames(1, 0.f);
	}
	EXPECT_EQ(Player().Video->GetBrush().GetResourceObject(), Texture);
	Send(TEXT("70x20"));
	EXPECT_EQ(Listener->Count, 1);
	EXPECT_EQ(GetShown().size(), 1u);
	// Without a media player there is no time to follow, and no harm.
	Player().Open(nullptr);
	Player().LoadComments(Document({{0.0}}));
	Player().Play();
	Player().Pause();
	Player().Seek(FTimespan::Zero());
	RunFrames(2, 0.f);
	EXPECT_EQ(GetShown().size(), 0u);
}

TEST_F(FPlayerWidget, ShowsAndHidesCommentsAsTheBarDoes)
{
	Player().LoadComments(Document({{0.0}, {1.0}, {2.0}}));
	RunFrames(2, 0.f);
	EXPECT_TRUE(Player().AreCommentsVisible());
	Player().SetCommentsVisible(false);
	EXPECT_FALSE(Player().AreCommentsVisible());
	EXPECT_FALSE(FindInBar<UCheckBox>(TEXT("OpenDanmakuButton"))->IsChecked());
	EXPECT_FALSE(FindInBar<UButton>(TEXT("SendDanmakuButton"))->GetIsEnabled());
	GoTo(1.0);
	std::vector<FPaintComment> Comments;
	Stage->CollectPaint(Comments);
	EXPECT_TRUE(Comments.empty());
	Player().SetCommentsVisible(true);
	GoTo(2.0);
	Stage->CollectPaint(Comments);
	EXPECT_EQ(Comments.size(), 1u);
	EXPECT_EQ(Player().Overlay->GetVisibility(), ESlateVisibility::HitTestInvisible) << "it eats no clicks";
}

TEST_F(FPlayerWidget, DoesWithoutABarAndAPanel)
{
	UFlitmarkPlayer* Bare = Keep(NewObject<UFlitmarkPlayer>(Stage->GetOverlay().GetWorld()));
	Bare->OverlayClass = nullptr;
	Bare->BarClass = nullptr;
	Bare->PanelClass = nullptr;
	EXPECT_TRUE(Bare->Initialize());
	EXPECT_FALSE(Bare->Initialize());
	Bare->ConstructTree();
	Bare->Open(MediaPlayer());
	Bare->LoadComments(Document({{0.0}}));
	for (int32 Frame = 0; Frame < 2; ++Frame)
	{
		Bare->Overlay->Arrange(FVector2f(800.f, 300.f));
		Bare->TickTree(0.f);
	}
	const UPanelWidget* Canvas = Cast<UPanelWidget>(Bare->Overlay->GetWidgetFromName(TEXT("DanmakuCanvasPanel")));
	EXPECT_EQ(Canvas->GetChildrenCount(), 1);
	Bare->SetCommentsVisible(false);
	EXPECT_FALSE(Bare->AreCommentsVisible());
	EXPECT_EQ(Canvas->GetChildrenCount(), 0);
	Bare->SetCommentsVisible(true);
	EXPECT_TRUE(Bare->AreCommentsVisible());
	Bare->DestructTree();
}

} // namespace

} // namespace Flitmark
