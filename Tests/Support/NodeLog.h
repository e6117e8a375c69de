#pragma once

#include "Blueprint/WidgetObserver.h"
#include "UObject/UObjectGlobals.h"

#include <string>
#include <vector>

class UUI_DanmakuNode;

namespace Flitmark
{

/** Records every comment widget made, and what happens to it; keeps them alive until told to release them. */
class FNodeLog final : public IWidgetObserver, public FGCObject
{
public:
	FNodeLog();
	~FNodeLog() override;

	/** In the order in which they were made; numbered from 1 by their position here. */
	const std::vector<UUI_DanmakuNode*>& GetNodes() const { return Nodes; }

	/** What has happened since the last call: "left 1", "ended 1", "canceled 1", by number. */
	std::vector<std::string> TakeEvents();

	/** Releases the widgets. */
	void Release() { Nodes.clear(); }

private:
	void OnWidgetCreated(UUserWidget& Widget) override;
	void OnPositionSet(UCanvasPanelSlot&) override {}
	void OnWidgetLeaving(UWidget& Widget) override;
	void AddReferencedObjects(FReferenceCollector& Collector) override;

	void OnEnded(UUI_DanmakuNode* Node);
	void OnCanceled(UUI_DanmakuNode* Node);
	void Note(const char* What, const UWidget* Node);

	std::vector<UUI_DanmakuNode*> Nodes;
	std::vector<std::string> Events;
};

} // namespace Flitmark
