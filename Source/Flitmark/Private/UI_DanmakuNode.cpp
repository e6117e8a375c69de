#include "UI_DanmakuNode.h"

#include "Components/CanvasPanel.h"
#include "Components/CanvasPanelSlot.h"
#include "Components/TextBlock.h"
#include "DanmakuRandom.h"
#include "DanmakuTrack.h"

namespace
{

/** Seconds of display time per canvas unit of travel: 0.0058, scaled by 0.7 or by 1. */
constexpr double MinTimePerUnit = 0.004059999999999999;
constexpr double ExtraTimePerUnit = 0.0017399999999999998;

/** 0 or 1, each with probability one half. */
int32 DrawZeroOrOne()
{
	const float Drawn = DrawDanmakuFraction();
	return FMath::Min(static_cast<int32>(Drawn + Drawn), 1);
}

} // namespace

void UUI_DanmakuNode::Init(const FDanmakuData& InDanmakuData, UCanvasPanel* InCanvasPanel, bool bInPaused)
{
	bIsPaused = bInPaused;
	Data = InDanmakuData;
	NodeCanvasPanelSlot = InCanvasPanel->AddChildToCanvas(this);
	NodeCanvasPanelSlot->SetAutoSize(true);
	ApplyStyle();
	ForceLayoutPrepass();
	NodeSize = GetDesiredSize();
	ComputeTiming();
	SetVisibility(ESlateVisibility::Visible);
	OnStarted.Broadcast(this);
}

void UUI_DanmakuNode::ApplyStyle()
{
	if (!NodeContentText)
	{
		// A class without a blueprint has no text block; its comments are empty.
		return;
	}
	NodeContentText->SetText(FText::FromString(Data.Content));
	FSlateFontInfo Font = NodeContentText->GetFont();
	Font.Size = static_cast<float>(Data.FontSize);
	NodeContentText->SetFont(Font);
	NodeContentText->SetColorAndOpacity(FSlateColor(FLinearColor(FColor::FromHex(Data.FontColor))));
}

void UUI_DanmakuNode::ComputeTiming()
{
	const double CanvasWidth = GetParent()->GetCachedGeometry().GetLocalSize().X;
	RollDistance = static_cast<float>(CanvasWidth + NodeSize.X);
	const double TimePerUnit = DrawZeroOrOne() * ExtraTimePerUnit + MinTimePerUnit;
	RemainingTime = static_cast<float>(FMath::FloorToDouble(TimePerUnit * static_cast<double>(RollDistance)));
	// A short distance takes no whole second. The speed is then infinite (NaN for a distance of zero), which lets every
	// newcomer follow (or none); NativeTick never moves the comment by it.
	RollSpeed = RollDistance / RemainingTime;
}

void UUI_DanmakuNode::SetPosition(const FVector2D& InPosition)
{
	NodeCanvasPanelSlot->SetPosition(InPosition);
}

FVector2D UUI_DanmakuNode::GetPosition() const
{
	return NodeCanvasPanelSlot->GetPosition();
}

FVector2D UUI_DanmakuNode::GetNodeSize() const
{
	return NodeSize;
}

float UUI_DanmakuNode::GetRollSpeed() const
{
	return RollSpeed;
}

const FDanmakuData& UUI_DanmakuNode::GetData() const
{
	return Data;
}

void UUI_DanmakuNode::AddUsedTrack(UDanmakuTrack* InTrack)
{
	UseTracks.Add(InTrack);
}

TArray<TObjectPtr<UDanmakuTrack>> UUI_DanmakuNode::GetUseTracks() const
{
	return UseTracks;
}

void UUI_DanmakuNode::Pause()
{
	bIsPaused = true;
}

void UUI_DanmakuNode::Resume()
{
	bIsPaused = false;
}

bool UUI_DanmakuNode::IsPaused() const
{
	return bIsPaused;
}

void UUI_DanmakuNode::NativeOnInitialized()
{
	Super::NativeOnInitialized();
	SetVisibility(ESlateVisibility::Hidden);
	UpdateCanTick();
	bIsPaused = true;
}

void UUI_DanmakuNode::NativeConstruct()
{
	Super::NativeConstruct();
}

void UUI_DanmakuNode::NativeDestruct()
{
	OnCanceled.Broadcast(this);
	Super::NativeDestruct();
}

void UUI_DanmakuNode::NativeTick(const FGeometry& MyGeometry, float InDeltaTime)
{
	Super::NativeTick(MyGeometry, InDeltaTime);
	if (bIsPaused)
	{
		return;
	}
	RemainingTime -= InDeltaTime;
	// Also if it is NaN.
	if (!(RemainingTime >= 0.f))
	{
		RemoveFromParent();
		OnEnded.Broadcast(this);
		return;
	}
	if (Data.Mode != EDanmakuMode::SCROLL)
	{
		return;
	}
	const double Step = InDeltaTime * RollSpeed;
	// A zero frame time and a zero display time yield NaN: the comment stays where it is.
	if (FMath::IsFinite(Step))
	{
		const FVector2D Position = NodeCanvasPanelSlot->GetPosition();
		SetPosition(FVector2D(Position.X - Step, Position.Y));
	}
}
