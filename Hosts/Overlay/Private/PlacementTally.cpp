#include "Overlay/PlacementTally.h"

#include "Components/CanvasPanel.h"
#include "Components/TextBlock.h"
#include "Formats/CommentTraits.h"
#include "Stage/Stage.h"
#include "UI_DanmakuNode.h"

namespace Flitmark
{

namespace
{

constexpr int64 SecondsPerMinute = 60;

bool HasLook(const UUI_DanmakuNode& InNode)
{
	const auto& Text = static_cast<const UTextBlock&>(*InNode.GetRootWidget());
	return HasSize(InNode.GetData().FontSize) && Text.GetColorAndOpacity().GetSpecifiedColor().A > 0.f &&
		   HasText(InNode.GetData().Content.GetStd());
}

/** The module hands on any number as a mode. */
bool HasLanes(const UUI_DanmakuNode& InNode)
{
	const EDanmakuMode Mode = InNode.GetData().Mode;
	return Mode == EDanmakuMode::SCROLL || Mode == EDanmakuMode::TOP || Mode == EDanmakuMode::BOTTOM;
}

} // namespace

FPlacementTally::FPlacementTally(const FStage& InStage)
	: Stage(InStage)
{
	Install(this);
}

FPlacementTally::~FPlacementTally()
{
	if (Get() == this)
	{
		Install(nullptr);
	}
}

int64 FPlacementTally::CountPresent() const
{
	int64 Count = 0;
	const UCanvasPanel& Canvas = Stage.GetCanvas();
	for (int32 Index = 0; Index < Canvas.GetChildrenCount(); ++Index)
	{
		const auto& Node = static_cast<const UUI_DanmakuNode&>(*Canvas.GetChildAt(Index));
		Count += !Stage.IsViewerComment(Node) && HasLook(Node) ? 1 : 0;
	}
	return Count;
}

void FPlacementTally::OnWidgetCreated(UUserWidget& InWidget)
{
	auto* const Node = Cast<UUI_DanmakuNode>(&InWidget);
	if (Node != nullptr && !Stage.IsViewerComment(*Node))
	{
		// The last to subscribe hears it first: when this does, the module has found a place or taken the comment off.
		Node->OnStarted.AddRaw(this, &FPlacementTally::OnNodeStarted);
	}
}

void FPlacementTally::OnNodeStarted(UUI_DanmakuNode* InNode)
{
	FPlacementCounts& Minute = Minutes[GetSecond(InNode->GetData().SpawnTime.GetTicks()) / SecondsPerMinute];
	for (FPlacementCounts* const Each : {&Counts, &Minute})
	{
		if (InNode->GetParent() != nullptr)
		{
			++(HasLook(*InNode) ? Each->NumShown : Each->NumBlank);
		}
		else
		{
			++(HasLanes(*InNode) ? Each->NumNoLane : Each->NumUnserved);
		}
	}
}

} // namespace Flitmark
