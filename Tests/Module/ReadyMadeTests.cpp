#include "StageFixture.h"

#include "Blueprint/WidgetBlueprintBuilder.h"
#include "Components/Button.h"
#include "Components/CheckBox.h"
#include "Components/EditableText.h"
#include "Components/TextBlock.h"
#include "Components/WrapBox.h"
#include "Engine/World.h"
#include "FlitmarkBar.h"
#include "FlitmarkComment.h"
#include "FlitmarkOverlay.h"
#include "FlitmarkPanel.h"
#include "FlitmarkViewerComment.h"
#include "UObject/UnrealType.h"

namespace Flitmark
{

namespace
{

class FReadyMade : public FStageFixture
{
protected:
	/** Everything painted during some seconds of comments and viewer input, in words. */
	std::vector<std::string> Play(const FStageOptions& Options)
	{
		Rand.Reset();
		Rebuild(Options);
		Stage->Preroll();
		Load({{0.0}, {0.5, "200x20", 1}, {1.0, "90x33"}, {1.0, "700x20", 2}, {2.0, "300x40"}});
		std::vector<std::string> Painted;
		std::vector<FPaintComment> Comments;
		for (int32 Frame = 0; Frame < 40; ++Frame)
		{
			Stage->SetMediaTime(Frame * TicksPerSecond / 10);
			if (Frame == 15)
			{
				FindInBar<UEditableText>(TEXT("InputDanmakuText"))->TypeText(FText::FromString(TEXT("50x20")));
				FindInBar<UButton>(TEXT("SendDanmakuButton"))->Click();
			}
			if (Frame == 30)
			{
				FindInBar<UCheckBox>(TEXT("OpenDanmakuButton"))->Toggle(false);
			}
			Stage->RunFrame(0.1f);
			Stage->CollectPaint(Comments);
			for (const FPaintComment& Each : Comments)
			{
				Painted.push_back(std::to_string(Frame) + " " + ToUtf8(Each.Text->GetText().ToString()) + " " +
								  std::to_string(Each.Position.X) + " " + std::to_string(Each.Position.Y) +
								  (Each.bViewers ? " viewer's" : ""));
			}
		}
		return Painted;
	}
};

TEST_F(FReadyMade, BindEveryWidgetOfTheirBases)
{
	UWorld* World = Stage->GetOverlay().GetWorld();
	UClass* const Classes[] = {UFlitmarkComment::StaticClass(), UFlitmarkViewerComment::StaticClass(),
							   UFlitmarkOverlay::StaticClass(), UFlitmarkBar::StaticClass(),
							   UFlitmarkPanel::StaticClass()};
	int32 NumBound = 0;
	for (UClass* Class : Classes)
	{
		UUserWidget* Widget = CreateWidget<UUserWidget>(World, Class);
		for (const UClass* Each = Class; Each != nullptr; Each = Each->GetSuperClass())
		{
			for (const std::unique_ptr<FProperty>& Property : Each->GetOwnProperties())
			{
				if (Property->GetMetaData().Find("BindWidget") != nullptr)
				{
					++NumBound;
					const UObject* Bound = Property->GetObjectValue(Widget);
					ASSERT_NE(Bound, nullptr) << Class->GetCppName() << " " << ToUtf8(Property->GetName());
					EXPECT_TRUE(Bound->IsA(Property->GetReferencedClass()));
					EXPECT_EQ(Bound, Widget->GetWidgetFromName(Property->GetFName())) << "it is in the tree";
				}
			}
		}
	}
	EXPECT_EQ(NumBound, 1 + 1 + 1 + 5 + 14);
}

TEST_F(FReadyMade, BehaveAsBlueprintsDo)
{
	std::string Error;
	const auto Comment = FWidgetBlueprintBuilder(TEXT("WBP_Comment"), UUI_DanmakuNode::StaticClass())
							 .Add(UTextBlock::StaticClass(), TEXT("NodeContentText"))
							 .Build(Error);
	const auto ViewerComment = FWidgetBlueprintBuilder(TEXT("WBP_ViewerComment"), UUI_DanmakuNode::StaticClass())
								   .Add(UTextBlock::StaticClass(), TEXT("NodeContentText"))
								   .Build(Error);
	const auto Overlay = FWidgetBlueprintBuilder(TEXT("WBP_Overlay"), UUI_Danmaku::StaticClass())
							 .Add(UCanvasPanel::StaticClass(), TEXT("DanmakuCanvasPanel"))
							 .Build(Error);
	const auto BuildFlat = [&Error](const TCHAR* Name, UClass* Base)
	{
		FWidgetBlueprintBuilder Builder(Name, Base);
		Builder.Add(UWrapBox::StaticClass(), TEXT("Controls"));
		for (const std::unique_ptr<FProperty>& Property : Base->GetOwnProperties())
		{
			if (Property->GetMetaData().Find("BindWidget") != nullptr)
			{
				const bool bToggle = Property->GetFName() == FName(TEXT("OpenDanmakuButton"));
				Builder.Add(Property->GetReferencedClass(), Property->GetFName(), TEXT("Controls"),
							[bToggle](UWidget& Widget)
							{
								if (bToggle)
								{
									static_cast<UCheckBox&>(Widget).SetIsChecked(true);
								}
							});
			}
		}
		return Builder.Build(Error);
	};
	const auto Bar = BuildFlat(TEXT("WBP_Bar"), UUI_DanmakuBar::StaticClass());
	const auto Panel = BuildFlat(TEXT("WBP_Panel"), UUI_DanmakuNodeSetting::StaticClass());
	ASSERT_TRUE(Comment && ViewerComment && Overlay && Bar && Panel) << Error;
	for (const auto& [Name, Class] : {std::pair(TEXT("DanmakuNodeClass"), Comment.get()),
									  std::pair(TEXT("DanmakuNodeUserClass"), ViewerComment.get())})
	{
		Overlay->FindPropertyByName(Name)->SetObjectValue(Overlay->GetDefaultObject(), Class);
	}
	FStageOptions Options = MakeOptions(FVector2f(800.f, 300.f));
	const std::vector<std::string> ReadyMade = Play(Options);
	Options.OverlayClass = Overlay.get();
	Options.BarClass = Bar.get();
	Options.PanelClass = Panel.get();
	EXPECT_EQ(Play(Options), ReadyMade);
	EXPECT_GT(ReadyMade.size(), 60u);
	EXPECT_TRUE(std::ranges::any_of(ReadyMade, [](const std::string& Line) { return Line.ends_with("viewer's"); }));
	EXPECT_TRUE(ReadyMade.back().starts_with("29 ")) << "switched off then";
	// Blueprints must outlive their widgets.
	Rebuild(MakeOptions(FVector2f(800.f, 300.f)));
}

TEST_F(FReadyMade, AStageRefusesAClassThatDoesNotFit)
{
	FStageOptions Options = MakeOptions(FVector2f(800.f, 300.f));
	Options.BarClass = UButton::StaticClass();
	Stage.reset();
	std::string Error;
	EXPECT_EQ(FStage::Create(Options, Error), nullptr);
	EXPECT_NE(Error.find("UUI_DanmakuBar"), std::string::npos) << Error;
}

TEST_F(FReadyMade, LetABlueprintBringItsOwnTree)
{
	std::string Error;
	const auto Overlay = FWidgetBlueprintBuilder(TEXT("WBP_Overlay"), UFlitmarkOverlay::StaticClass())
							 .Add(UWrapBox::StaticClass(), TEXT("Root"))
							 .Add(UCanvasPanel::StaticClass(), TEXT("DanmakuCanvasPanel"), TEXT("Root"))
							 .Build(Error);
	ASSERT_NE(Overlay, nullptr) << Error;
	FStageOptions Options = MakeOptions(FVector2f(800.f, 300.f));
	Options.OverlayClass = Overlay.get();
	Rebuild(Options);
	Stage->Preroll();
	Load({{0.0}});
	GoTo(0.0);
	ASSERT_EQ(GetShown().size(), 1u);
	EXPECT_TRUE(GetShown()[0]->IsA<UFlitmarkComment>()) << "the comment classes are inherited";
	Rebuild(MakeOptions(FVector2f(800.f, 300.f)));
}

} // namespace

} // namespace Flitmark
