#include "NodeLog.h"

#include "UI_DanmakuNode.h"

#include <algorithm>
#include <utility>

namespace Flitmark
{

FNodeLog::FNodeLog()
{
	Install(this);
}

FNodeLog::~FNodeLog()
{
	Install(nullptr);
}

std::vector<std::string> FNodeLog::TakeEvents()
{
	return std::exchange(Events, {});
}

void FNodeLog::OnWidgetCreated(UUserWidget& Widget)
{
	if (UUI_DanmakuNode* Node = Cast<UUI_DanmakuNode>(&Widget))
	{
		Nodes.push_back(Node);
		Node->OnEnded.AddRaw(this, &FNodeLog::OnEnded);
		Node->OnCanceled.AddRaw(this, &FNodeLog::OnCanceled);
	}
}

void FNodeLog::OnWidgetLeaving(UWidget& Widget)
{
	Note("left", &Widget);
}

void FNodeLog::AddReferencedObjects(FReferenceCollector& Collector)
{
	for (UUI_DanmakuNode* Node : Nodes)
	{
		Collector.AddReferencedObject(Node);
	}
}

void FNodeLog::OnEnded(UUI_DanmakuNode* Node)
{
	Note("ended", Node);
}

void FNodeLog::OnCanceled(UUI_DanmakuNode* Node)
{
	Note("canceled", Node);
}

void FNodeLog::Note(const char* What, const UWidget* Node)
{
	const auto Found = std::ranges::find(Nodes, Node);
	if (Found != Nodes.end())
	{
		Events.push_back(std::string(What) + " " + std::to_string(Found - Nodes.begin() + 1));
	}
}

} // namespace Flitmark
