#include "Blueprint/UserWidget.h"

#include "Blueprint/WidgetBlueprintGeneratedClass.h"
#include "Blueprint/WidgetObserver.h"
#include "Blueprint/WidgetTree.h"
#include "Components/PanelWidget.h"
#include "Engine/World.h"
#include "Input/Events.h"
#include "UObject/GeneratedCppIncludes.h"

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
	Widget->Initialize();
	return Widget;
}

bool UUserWidget::Initialize()
{
	if (bInitialized)
	{
		return false;
	}
	bInitialized = true;
	if (const auto* Blueprint = dynamic_cast<const UWidgetBlueprintGeneratedClass*>(GetClass()))
	{
		Blueprint->InitializeWidget(*this);
	}
	else
	{
		InitializeNativeClassData();
	}
	if (WidgetTree == nullptr)
	{
		static const FName TreeName(TEXT("WidgetTree"));
		WidgetTree = NewObject<UWidgetTree>(this, UWidgetTree::StaticClass(), TreeName, RF_Transient);
	}
	NativeOnInitialized();
	return true;
}

UUserWidget* UUserWidget::CreateWidgetInstance(UWidget& InOwner, TSubclassOf<UUserWidget> InClass, FName InName)
{
	UUserWidget* Owner = Cast<UUserWidget>(&InOwner);
	Owner = Owner != nullptr ? Owner : InOwner.GetOwningUserWidget();
	return Owner != nullptr && Owner->WidgetTree != nullptr ? Create(*Owner->WidgetTree, InClass, InName) : nullptr;
}

UUserWidget* UUserWidget::CreateWidgetInstance(UWidgetTree& InOwner, TSubclassOf<UUserWidget> InClass, FName InName)
{
	return Create(InOwner, InClass, InName);
}

UUserWidget* UUserWidget::CreateWidgetInstance(UWorld& InOwner, TSubclassOf<UUserWidget> InClass, FName InName)
{
	return Create(InOwner, InClass, InName);
}

UWidget* UUserWidget::GetWidgetFromName(FName InName) const
{
	return WidgetTree != nullptr ? WidgetTree->FindWidget(InName) : nullptr;
}

UWidget* UUserWidget::GetRootWidget() const
{
	return WidgetTree != nullptr ? WidgetTree->RootWidget.Get() : nullptr;
}

void UUserWidget::Arrange(const FVector2f& InSize)
{
	Super::Arrange(InSize);
	if (UWidget* Root = GetRootWidget())
	{
		Root->Arrange(InSize);
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
	if (UWidget* Root = GetRootWidget(); Root != nullptr && (bWasRoot || Slot != nullptr))
	{
		Root->TickTree(InDeltaTime);
	}
}

void UUserWidget::ConstructTree()
{
	if (UWidget* Root = GetRootWidget())
	{
		Root->ConstructTree();
	}
	Super::ConstructTree();
	NativePreConstruct();
	NativeConstruct();
}

void UUserWidget::DestructTree()
{
	Super::DestructTree();
	NativeDestruct();
	if (UWidget* Root = GetRootWidget())
	{
		Root->DestructTree();
	}
}

void UUserWidget::VisitReferences(FReferenceCollector& Collector)
{
	Super::VisitReferences(Collector);
	Collector.AddReferencedObject(WidgetTree);
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
	UWidget* Root = GetRootWidget();
	if (Root == nullptr)
	{
		return FVector2D::ZeroVector;
	}
	Root->ForceLayoutPrepass();
	return Root->GetDesiredSize();
}
