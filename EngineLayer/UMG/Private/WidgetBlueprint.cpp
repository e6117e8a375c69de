#include "Blueprint/WidgetBlueprintBuilder.h"
#include "Blueprint/WidgetTree.h"
#include "Components/ContentWidget.h"
#include "Containers/StringConv.h"
#include "UObject/GeneratedCppIncludes.h"

#include <algorithm>

namespace
{

std::string ToUtf8(const FString& Text)
{
	const FTCHARToUTF8 Converted(*Text, Text.Len());
	return std::string(Converted.Get(), static_cast<std::size_t>(Converted.Length()));
}

bool IsBindWidget(const FProperty& Property)
{
	return Property.GetMetaData().Find("BindWidget") != nullptr;
}

bool IsBindWidgetOptional(const FProperty& Property)
{
	return Property.GetMetaData().Find("BindWidgetOptional") != nullptr;
}

} // namespace

UWidgetBlueprintGeneratedClass::UWidgetBlueprintGeneratedClass(FName InName, UClass* InParent,
															   std::vector<FWidgetTemplate> InTree)
	: UClass(InName, InParent)
	, Tree(std::move(InTree))
{
	for (const UClass* Each = InParent; Each != nullptr; Each = Each->GetSuperClass())
	{
		for (const std::unique_ptr<FProperty>& Property : Each->GetOwnProperties())
		{
			if (Property->HasAnyFlags(CPF_Edit))
			{
				EditableProperties.push_back(Property.get());
			}
		}
	}
}

void UWidgetBlueprintGeneratedClass::InitializeWidget(UUserWidget& Widget) const
{
	UWidgetTree* Widgets =
		NewObject<UWidgetTree>(&Widget, UWidgetTree::StaticClass(), TEXT("WidgetTree"), RF_Transient);
	Widget.WidgetTree = Widgets;
	std::vector<UWidget*> Made;
	Made.reserve(Tree.size());
	for (const FWidgetTemplate& Template : Tree)
	{
		UWidget* Each = Widgets->ConstructWidget<UWidget>(Template.Class, Template.Name);
		Made.push_back(Each);
		if (Template.Parent == INDEX_NONE)
		{
			Widgets->RootWidget = Each;
		}
		else
		{
			static_cast<UPanelWidget*>(Made[static_cast<std::size_t>(Template.Parent)])->AddChild(Each);
		}
		if (Template.Setup)
		{
			Template.Setup(*Each);
		}
		if (Template.BoundMember != nullptr)
		{
			Template.BoundMember->SetObjectValue(&Widget, Each);
		}
	}
}

void UWidgetBlueprintGeneratedClass::PostConstruct(UObject& Object)
{
	const UObject* Defaults = GetDefaultObject();
	for (const FProperty* Property : EditableProperties)
	{
		Property->CopyValue(&Object, Defaults);
	}
}

FWidgetBlueprintBuilder::FWidgetBlueprintBuilder(const TCHAR* InName, UClass* InParentClass)
	: Name(InName)
	, ParentClass(InParentClass)
{
}

const char* FWidgetBlueprintBuilder::FindFault(const UClass* InClass, FName InName, FName InPanel) const
{
	if (InClass == nullptr || !InClass->IsChildOf(UWidget::StaticClass()) || InClass->HasAnyClassFlags(CLASS_Abstract))
	{
		return "is of a class that no widget can be made of";
	}
	if (std::ranges::find(Tree, InName, &FWidgetTemplate::Name) != Tree.end())
	{
		return "stands in the tree twice";
	}
	if (InPanel.IsNone() != Tree.empty())
	{
		return "must be in a panel, unless it is the root";
	}
	const auto Panel = std::ranges::find(Tree, InPanel, &FWidgetTemplate::Name);
	const bool bRoot = InPanel.IsNone();
	if (!bRoot && (Panel == Tree.end() || !Panel->Class->IsChildOf(UPanelWidget::StaticClass())))
	{
		return "is put into something that is not a panel";
	}
	const auto IsInPanel = [&](const FWidgetTemplate& Each)
	{
		return Each.Parent == static_cast<int32>(Panel - Tree.begin());
	};
	if (!bRoot && Panel->Class->IsChildOf(UContentWidget::StaticClass()) && std::ranges::any_of(Tree, IsInPanel))
	{
		return "is put into something that has its only child";
	}
	return nullptr;
}

FWidgetBlueprintBuilder& FWidgetBlueprintBuilder::Add(UClass* InClass, FName InName, FName InPanel,
													  std::function<void(UWidget&)> InSetup)
{
	if (!FirstError.empty())
	{
		return *this;
	}
	if (const char* Fault = FindFault(InClass, InName, InPanel))
	{
		FirstError =
			"widget blueprint " + ToUtf8(Name.ToString()) + ": widget \"" + ToUtf8(InName.ToString()) + "\" " + Fault;
		return *this;
	}
	const auto Panel = std::ranges::find(Tree, InPanel, &FWidgetTemplate::Name);
	const int32 Parent = Panel == Tree.end() ? INDEX_NONE : static_cast<int32>(Panel - Tree.begin());
	Tree.push_back({InClass, InName, Parent, std::move(InSetup), nullptr});
	return *this;
}

bool FWidgetBlueprintBuilder::BindMembers(std::string& OutError)
{
	for (const UClass* Each = ParentClass; Each != nullptr; Each = Each->GetSuperClass())
	{
		for (const std::unique_ptr<FProperty>& Declared : Each->GetOwnProperties())
		{
			const FProperty& Property = *Declared;
			if (!IsBindWidget(Property) && !IsBindWidgetOptional(Property))
			{
				continue;
			}
			const auto Found = std::ranges::find(Tree, Property.GetFName(), &FWidgetTemplate::Name);
			const std::string Wanted = "widget blueprint " + ToUtf8(Name.ToString()) + ": class " + Each->GetCppName() +
									   " needs a widget named \"" + ToUtf8(Property.GetName()) + "\" of type " +
									   Property.GetReferencedClass()->GetCppName();
			if (Found == Tree.end() && IsBindWidgetOptional(Property))
			{
				continue;
			}
			if (Found == Tree.end())
			{
				OutError = Wanted + ", and the tree has none: add it";
				return false;
			}
			if (!Found->Class->IsChildOf(Property.GetReferencedClass()))
			{
				OutError = Wanted + ", and the tree's is a " + Found->Class->GetCppName() + ": give it that type";
				return false;
			}
			Found->BoundMember = &Property;
		}
	}
	return true;
}

std::unique_ptr<UWidgetBlueprintGeneratedClass> FWidgetBlueprintBuilder::Build(std::string& OutError)
{
	OutError = FirstError;
	if (!OutError.empty() || !BindMembers(OutError))
	{
		return nullptr;
	}
	return std::make_unique<UWidgetBlueprintGeneratedClass>(Name, ParentClass, Tree);
}
