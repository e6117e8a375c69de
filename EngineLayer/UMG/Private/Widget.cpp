#include "Components/Widget.h"

#include "Blueprint/UserWidget.h"
#include "Blueprint/WidgetObserver.h"
#include "Components/PanelWidget.h"
#include "UObject/GeneratedCppIncludes.h"

IMPLEMENT_LAYER_CLASS_FLAGS(UVisual, "Visual", CLASS_EditInlineNew | CLASS_DefaultToInstanced)
IMPLEMENT_LAYER_CLASS_FLAGS(UWidget, "Widget", CLASS_Abstract)

namespace
{

IWidgetObserver* Observer = nullptr;

/** The widget with keyboard focus; there is only one keyboard. */
FWeakObjectPtr FocusedWidget;

} // namespace

void IWidgetObserver::Install(IWidgetObserver* InObserver)
{
	Observer = InObserver;
}

IWidgetObserver* IWidgetObserver::Get()
{
	return Observer;
}

UPanelWidget* UWidget::GetParent() const
{
	return Slot != nullptr ? Slot->Parent.Get() : nullptr;
}

void UWidget::RemoveFromParent()
{
	if (UPanelWidget* Parent = GetParent())
	{
		Parent->RemoveChild(this);
	}
}

void UWidget::SetFocus()
{
	FocusedWidget = FWeakObjectPtr(this);
}

bool UWidget::HasKeyboardFocus() const
{
	return FocusedWidget == FWeakObjectPtr(this);
}

void UWidget::ClearFocus()
{
	if (HasKeyboardFocus())
	{
		FocusedWidget = FWeakObjectPtr();
	}
}

bool UWidget::IsUsable() const
{
	const UWidget* Each = this;
	while (Each->IsConstructed() && Each->IsDisplayed() && Each->GetIsEnabled())
	{
		const UWidget* Around = Each->GetParent();
		if (Around == nullptr)
		{
			const UUserWidget* Owner = Each->GetOwningUserWidget();
			Around = Owner != nullptr && Owner->GetRootWidget() == Each ? Owner : nullptr;
		}
		if (Around == nullptr)
		{
			return true;
		}
		Each = Around;
	}
	return false;
}

UUserWidget* UWidget::GetOwningUserWidget() const
{
	for (UObject* Each = GetOuter(); Each != nullptr; Each = Each->GetOuter())
	{
		if (UUserWidget* Owner = Cast<UUserWidget>(Each))
		{
			return Owner;
		}
	}
	return nullptr;
}

void UWidget::VisitReferences(FReferenceCollector& Collector)
{
	Collector.AddReferencedObject(Slot);
}
