#include "Stage/Stage.h"

#include "Blueprint/WidgetTeardown.h"
#include "Components/CanvasPanel.h"
#include "Components/TextBlock.h"
#include "Engine/World.h"
#include "FlitmarkPlayer.h"
#include "Fonts/FontMeasure.h"
#include "UI_Danmaku.h"
#include "UI_DanmakuBar.h"
#include "UI_DanmakuNode.h"
#include "UI_DanmakuNodeSetting.h"

#include <cstdlib>
#include <utility>

namespace Flitmark
{

namespace
{

/** Objects that may gather beyond twice the living ones before a collection pays. */
constexpr int32 CollectionSlack = 4096;

void ApplySetting(UObject& Widget, const FStageSetting& Setting)
{
	if (const FProperty* Property = Widget.GetClass()->FindPropertyByName(Setting.Name))
	{
		*Property->ContainerPtrToValuePtr<int32>(&Widget) = Setting.Value;
	}
}

UFlitmarkPlayer* MakeScreen(UWorld* World, const FStageOptions& Options)
{
	UFlitmarkPlayer* Screen = NewObject<UFlitmarkPlayer>(World);
	if (Options.OverlayClass != nullptr)
	{
		Screen->OverlayClass = Options.OverlayClass;
	}
	if (Options.BarClass != nullptr)
	{
		Screen->BarClass = Options.BarClass;
	}
	if (Options.PanelClass != nullptr)
	{
		Screen->PanelClass = Options.PanelClass;
	}
	Screen->Initialize();
	return Screen;
}

uint64 MakeKey(const UObject& InObject)
{
	const int32 Index = InObject.GetUniqueID();
	return static_cast<uint64>(static_cast<uint32>(FObjectSlots::GetSerial(Index))) << 32 | static_cast<uint32>(Index);
}

} // namespace

std::unique_ptr<FStage> FStage::Create(const FStageOptions& InOptions, std::string& OutError)
{
	std::unique_ptr<FStage> Stage(new FStage(InOptions));
	if (!Stage->FindParts(OutError))
	{
		return nullptr;
	}
	Stage->Start(InOptions);
	return Stage;
}

FStage::FStage(const FStageOptions& InOptions)
	: CanvasSize(InOptions.CanvasSize)
{
	FSlateFontMeasure::Install(InOptions.Measure);
	std::srand(InOptions.Seed);
	World = NewObject<UWorld>();
	Player = NewObject<UMediaPlayer>(World);
	Player->SetSource(this);
	Screen = MakeScreen(World, InOptions);
}

bool FStage::FindParts(std::string& OutError)
{
	Overlay = Screen->Overlay;
	Bar = Screen->Bar;
	Panel = Screen->Panel;
	Canvas = Overlay != nullptr ? Cast<UCanvasPanel>(Overlay->GetWidgetFromName(TEXT("DanmakuCanvasPanel"))) : nullptr;
	if (Canvas == nullptr || Bar == nullptr || Panel == nullptr)
	{
		OutError = "the stage lacks its overlay with a canvas, its bar or its panel: give it classes derived from "
				   "UUI_Danmaku, UUI_DanmakuBar and UUI_DanmakuNodeSetting";
		return false;
	}
	const FProperty* ViewerClass = Overlay->GetClass()->FindPropertyByName(TEXT("DanmakuNodeUserClass"));
	ViewerCommentClass = static_cast<const UClass*>(ViewerClass->GetObjectValue(Overlay));
	return true;
}

void FStage::Start(const FStageOptions& InOptions)
{
	for (const FStageSetting& Setting : InOptions.Settings)
	{
		ApplySetting(*Bar, Setting);
		ApplySetting(*Panel, Setting);
	}
	Screen->ConstructTree();
	Screen->Open(Player);
}

FStage::~FStage()
{
	Screen->DestructTree();
	Player->SetSource(nullptr);
	World = nullptr;
	Player = nullptr;
	Screen = nullptr;
	CollectGarbage();
	FSlateFontMeasure::Install(nullptr);
}

bool FStage::Play()
{
	return !std::exchange(bPlaying, true);
}

bool FStage::Pause()
{
	return std::exchange(bPlaying, false);
}

bool FStage::Seek(const FTimespan& InTime)
{
	MediaTicks = InTime.GetTicks();
	return true;
}

void FStage::Preroll(int64 InTicks)
{
	const int64 FirstTicks = MediaTicks;
	MediaTicks = InTicks;
	RunFrame(0.f);
	MediaTicks = FirstTicks;
}

void FStage::RunFrame(float InDeltaTime, float InTimerTime)
{
	World->GetTimerManager().Tick(InTimerTime);
	Overlay->Arrange(CanvasSize);
	FWidgetTeardown& Teardown = FWidgetTeardown::Get();
	Teardown.TickTree(*Screen, InDeltaTime);
	Teardown.TearDownLeft();
	CollectIfDue();
}

void FStage::CollectIfDue()
{
	// The walk over the living is paid for by as many dead.
	if (FObjectSlots::NumAlive() > 2 * NumKept + CollectionSlack)
	{
		CollectGarbage();
		NumKept = FObjectSlots::NumAlive();
	}
}

void FStage::CollectPaint(std::vector<FPaintComment>& OutComments) const
{
	OutComments.clear();
	if (!Overlay->IsDisplayed() || !Canvas->IsDisplayed())
	{
		return;
	}
	for (int32 Index = 0; Index < Canvas->GetChildrenCount(); ++Index)
	{
		const auto* Comment = static_cast<const UUI_DanmakuNode*>(Canvas->GetChildAt(Index));
		if (Comment->IsDisplayed())
		{
			const auto* Slot = static_cast<const UCanvasPanelSlot*>(Comment->Slot.Get());
			const auto* Text = static_cast<const UTextBlock*>(Comment->GetRootWidget());
			OutComments.push_back({MakeKey(*Comment), Comment, Text, Slot->GetPosition(), Comment->GetDesiredSize(),
								   Comment->GetClass() == ViewerCommentClass});
		}
	}
}

FTrackCounts FStage::GetTrackCounts() const
{
	const UObject* Manager = Overlay->GetClass()->FindPropertyByName(TEXT("TrackManager"))->GetObjectValue(Overlay);
	if (Manager == nullptr)
	{
		return {};
	}
	const auto Count = [Manager](const TCHAR* Name)
	{
		return static_cast<int32>(Manager->GetClass()->FindPropertyByName(Name)->GetObjectArray(Manager).size());
	};
	return {Count(TEXT("ScrollTracks")), Count(TEXT("TopTracks")), Count(TEXT("BottomTracks")),
			Count(TEXT("ReverseTracks"))};
}

bool FStage::IsViewerComment(const UUI_DanmakuNode& InNode) const
{
	return InNode.GetClass() == ViewerCommentClass;
}

void FStage::AddReferencedObjects(FReferenceCollector& InCollector)
{
	InCollector.AddReferencedObject(World);
	InCollector.AddReferencedObject(Player);
	InCollector.AddReferencedObject(Screen);
}

} // namespace Flitmark
