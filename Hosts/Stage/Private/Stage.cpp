#include "Stage/Stage.h"

#include "Blueprint/WidgetTeardown.h"
#include "Components/CanvasPanel.h"
#include "Components/TextBlock.h"
#include "Engine/World.h"
#include "Fonts/FontMeasure.h"
#include "StageBlueprints.h"
#include "UI_Danmaku.h"
#include "UI_DanmakuBar.h"
#include "UI_DanmakuNode.h"
#include "UI_DanmakuNodeSetting.h"

#include <cstdlib>

namespace Flitmark
{

namespace
{

/** Media time of the preroll frame: a second that no media time of 0 or more lies in. */
constexpr int64 PrerollTicks = -10'000'000;

/** Objects that may gather beyond twice the living ones before a collection pays. */
constexpr int32 CollectionSlack = 4096;

void SetClassDefault(UClass& InClass, const TCHAR* InName, UClass* InValue)
{
	const FProperty* Property = InClass.FindPropertyByName(InName);
	Property->SetObjectValue(InClass.GetDefaultObject(), InValue);
}

void ApplySetting(UClass& InClass, const FStageSetting& InSetting)
{
	if (const FProperty* Property = InClass.FindPropertyByName(InSetting.Name))
	{
		*Property->ContainerPtrToValuePtr<int32>(InClass.GetDefaultObject()) = InSetting.Value;
	}
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
	if (!Stage->Blueprints->Build(OutError))
	{
		return nullptr;
	}
	Stage->Build(InOptions);
	return Stage;
}

FStage::FStage(const FStageOptions& InOptions)
	: Blueprints(std::make_unique<FStageBlueprints>())
	, CanvasSize(InOptions.CanvasSize)
{
	FSlateFontMeasure::Install(InOptions.Measure);
}

FStage::~FStage()
{
	if (Screen != nullptr)
	{
		Screen->DestructTree();
		Player->SetSource(nullptr);
	}
	World = nullptr;
	Player = nullptr;
	Screen = nullptr;
	CollectGarbage();
	FSlateFontMeasure::Install(nullptr);
}

void FStage::Build(const FStageOptions& InOptions)
{
	SetClassDefault(*Blueprints->Overlay, TEXT("DanmakuNodeClass"), Blueprints->Comment.get());
	SetClassDefault(*Blueprints->Overlay, TEXT("DanmakuNodeUserClass"), Blueprints->ViewerComment.get());
	for (const FStageSetting& Setting : InOptions.Settings)
	{
		ApplySetting(*Blueprints->Bar, Setting);
		ApplySetting(*Blueprints->Panel, Setting);
	}

	std::srand(InOptions.Seed);
	World = NewObject<UWorld>();
	Player = NewObject<UMediaPlayer>(World);
	Player->SetSource(this);
	Screen = CreateWidget<UUserWidget>(World, Blueprints->Screen.get());
	Overlay = CreateWidget<UUI_Danmaku>(Screen, Blueprints->Overlay.get());
	Bar = CreateWidget<UUI_DanmakuBar>(Screen, Blueprints->Bar.get());
	Panel = CreateWidget<UUI_DanmakuNodeSetting>(Screen, Blueprints->Panel.get());
	UCanvasPanel* Root = static_cast<UCanvasPanel*>(Screen->GetRootWidget());
	Root->AddChildToCanvas(Overlay);
	Root->AddChildToCanvas(Bar);
	Root->AddChildToCanvas(Panel);
	Canvas = static_cast<UCanvasPanel*>(Overlay->GetRootWidget());
	Screen->ConstructTree();
	Overlay->Init(Player, Bar, Panel);
}

void FStage::Preroll()
{
	const int64 FirstTicks = MediaTicks;
	MediaTicks = PrerollTicks;
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
		const UUserWidget* Comment = static_cast<const UUserWidget*>(Canvas->GetChildAt(Index));
		if (Comment->IsDisplayed())
		{
			const auto* Slot = static_cast<const UCanvasPanelSlot*>(Comment->Slot.Get());
			const auto* Text = static_cast<const UTextBlock*>(Comment->GetRootWidget());
			OutComments.push_back({MakeKey(*Comment), Text, Slot->GetPosition(), Comment->GetDesiredSize(),
								   Comment->GetClass() == Blueprints->ViewerComment.get()});
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
	return InNode.GetClass() == Blueprints->ViewerComment.get();
}

void FStage::AddReferencedObjects(FReferenceCollector& InCollector)
{
	InCollector.AddReferencedObject(World);
	InCollector.AddReferencedObject(Player);
	InCollector.AddReferencedObject(Screen);
}

} // namespace Flitmark
