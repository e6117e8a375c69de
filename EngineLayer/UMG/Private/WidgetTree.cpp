#include "Blueprint/WidgetTree.h"

#include "Components/PanelWidget.h"
#include "UObject/GeneratedCppIncludes.h"

#include <vector>

IMPLEMENT_LAYER_CLASS(UWidgetTree, "WidgetTree")

UWidget* UWidgetTree::FindWidget(FName InName) const
{
	std::vector<UWidget*> Open{RootWidget.Get()};
	while (!Open.empty())
	{
		UWidget* Each = Open.back();
		Open.pop_back();
		if (Each != nullptr && Each->GetFName() == InName)
		{
			return Each;
		}
		if (const UPanelWidget* Panel = Cast<UPanelWidget>(Each))
		{
			for (int32 Index = 0; Index < Panel->GetChildrenCount(); ++Index)
			{
				Open.push_back(Panel->GetChildAt(Index));
			}
		}
	}
	return nullptr;
}

void UWidgetTree::VisitReferences(FReferenceCollector& Collector)
{
	Collector.AddReferencedObject(RootWidget);
}
