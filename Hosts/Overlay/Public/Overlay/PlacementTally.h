#pragma once

#include "Blueprint/WidgetObserver.h"
#include "CoreMinimal.h"

#include <map>

class UUI_DanmakuNode;

namespace Flitmark
{

class FStage;

/** What became of the comments that came due. */
struct FPlacementCounts
{
	/** Found a lane. */
	int64 NumShown = 0;
	/** The same, but there is nothing to see: no text, no size, or a transparent color. */
	int64 NumBlank = 0;
	/** No lane took them. */
	int64 NumNoLane = 0;
	/** The same, because no mode of that number has lanes. */
	int64 NumUnserved = 0;

	int64 CountAll() const { return NumShown + NumBlank + NumNoLane + NumUnserved; }
};

/** Counts what the module does with the document's comments, by asking its comments themselves; the viewer's own aside. */
class FPlacementTally final : private IWidgetObserver
{
public:
	/** One at a time; InStage outlives this. */
	explicit FPlacementTally(const FStage& InStage);
	~FPlacementTally() override;
	FPlacementTally(const FPlacementTally&) = delete;
	FPlacementTally& operator=(const FPlacementTally&) = delete;

	const FPlacementCounts& GetCounts() const { return Counts; }

	/** By the minute of media time in which they were due. */
	const std::map<int64, FPlacementCounts>& GetMinutes() const { return Minutes; }

	/** How many of those shown are on the canvas now. */
	int64 CountPresent() const;

private:
	void OnWidgetCreated(UUserWidget& InWidget) override;
	void OnPositionSet(UCanvasPanelSlot&) override {}
	void OnWidgetLeaving(UWidget&) override {}
	void OnNodeStarted(UUI_DanmakuNode* InNode);

	const FStage& Stage;
	FPlacementCounts Counts;
	std::map<int64, FPlacementCounts> Minutes;
};

} // namespace Flitmark
