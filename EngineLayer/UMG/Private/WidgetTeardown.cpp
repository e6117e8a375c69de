#include "Blueprint/WidgetTeardown.h"

#include "Components/Widget.h"

#include <utility>

FWidgetTeardown& FWidgetTeardown::Get()
{
	static FWidgetTeardown Teardown;
	return Teardown;
}

void FWidgetTeardown::TickTree(UWidget& Root, float InDeltaTime)
{
	bInPass = true;
	Root.TickTree(InDeltaTime);
	bInPass = false;
}

int32 FWidgetTeardown::TearDownLeft()
{
	int32 Count = 0;
	const std::vector<UWidget*> Widgets = std::exchange(Left, {});
	for (UWidget* Widget : Widgets)
	{
		// One that was put back into a tree stays.
		if (Widget->IsConstructed() && Widget->GetParent() == nullptr)
		{
			Widget->DestructTree();
			++Count;
		}
	}
	return Count;
}

void FWidgetTeardown::OnLeft(UWidget& Widget)
{
	if (bInPass)
	{
		Left.push_back(&Widget);
	}
	else
	{
		Widget.DestructTree();
	}
}

void FWidgetTeardown::AddReferencedObjects(FReferenceCollector& Collector)
{
	for (UWidget* Widget : Left)
	{
		Collector.AddReferencedObject(Widget);
	}
}
