#include "Blueprint/UserWidget.h"

#include "Blueprint/WidgetBlueprintGeneratedClass.h"
#include "Blueprint/WidgetObserver.h"
#include "Components/PanelWidget.h"
#include "Engine/World.h"
#include "Input/Events.h"
#include "UObject/GeneratedCppIncludes.h"

#include <vector>

IMPLEMENT_LAYER_CLASS(UUserWidget, "UserWidget")

UUserWidget* UUserWidget::Create(UObject& InOuter, UClass* InClass, FName InName)
{
	UUserWidget* Widget =
		Cast<UUserWidget>(StaticConstructObject_Internal(InClass, &InOuter, InName, RF_Transactional));
	if (Widget == nullptr)
	{
		return nullptr;
	}
	if (IWidgetObserver* Observer = IWidgetObserver::Get())
	{
		Observer->OnWidgetCreated(*Widget);
	}
	if (const auto* Blueprint = dynamic_cast<const UWidgetBlueprintGeneratedClass*>(Widget->GetClass()))
	{
		Blueprint->InitializeWidget(*Widget);
	}
	Widget->NativeOnInitialized();
	return Widget;
}

UUserWidget* UUserWidget::CreateWidgetInstance(UWidget& InOwner, TSubclassOf<UUserWidget> InClass, FName InName)
{
	UUserWidget* Owner = Cast<UUserWidget>(&InOwner);
	Owner = Owner != nullptr ? Owner : InOwner.GetOwningUserWidget();
	return Owner != nullptr ? Create(*Owner, InClass, InName) : nullptr;
}

UUserWidget* UUserWidget::CreateWidgetInstance(UWorld& InOwner, TSubclassOf<UUserWidget> InClass, FName InName)
{
	return Create(InOwner, InClass, InName);
}

UWidget* UUserWidget::GetWidgetFromName(FName InName) const
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

void UUserWidget::Arrange(const FVector2f& InSize)
{
	Super::Arrange(InSize);
	if (RootWidget != nullptr)
	{
		RootWidget->Arrange(InSize);
	}
}

void UUserWidget::TickTree(float InDeltaTime)
{
	if (!IsDisplayed())
	{
		return;
	}
	const bool bWasRoot = Slot == nullptr;
	NativeTick(GetCachedGeometry(), InDeltaTime);
	if (RootWidget != nullptr && (bWasRoot || Slot != nullptr))
	{
		RootWidget->TickTree(InDeltaTime);
	}
}

void UUserWidget::ConstructTree()
{
	if (RootWidget != nullptr)
	{
		RootWidget->ConstructTree();
	}
	Super::ConstructTree();
	NativePreConstruct();
	NativeConstruct();
}

void UUserWidget::DestructTree()
{
	Super::DestructTree();
	NativeDestruct();
	if (RootWidget != nullptr)
	{
		RootWidget->DestructTree();
	}
}

void UUserWidget::VisitReferences(FReferenceCollector& Collector)
{
	Super::VisitReferences(Collector);
	Collector.AddReferencedObject(RootWidget);
}

void UUserWidget::PointerEnter()
{
	if (IsUsable())
	{
		NativeOnMouseEnter(GetCachedGeometry(), FPointerEvent());
	}
}

void UUserWidget::PointerLeave()
{
	if (IsUsable())
	{
		NativeOnMouseLeave(FPointerEvent());
	}
}

void UUserWidget::NativeOnMouseEnter(const FGeometry&, const FPointerEvent&)
{
}

void UUserWidget::NativeOnMouseLeave(const FPointerEvent&)
{
}

FVector2D UUserWidget::ComputeDesiredSize()
{
	if (RootWidget == nullptr)
	{
		return FVector2D::ZeroVector;
	}
	RootWidget->ForceLayoutPrepass();
	return RootWidget->GetDesiredSize();
}
