#pragma once

#include "Blueprint/UserWidget.h"

#include <functional>
#include <vector>

/** One widget of a blueprint's tree. */
struct FWidgetTemplate
{
	UClass* Class = nullptr;
	FName Name;
	/** Place of the panel around it in the tree's list; INDEX_NONE for the root. */
	int32 Parent = INDEX_NONE;
	/** Sets the widget up as the designer left it; may be empty. */
	std::function<void(UWidget&)> Setup;
	/** The class's member that is bound to it; null for none. */
	const FProperty* BoundMember = nullptr;
};

/** The class of a widget blueprint: a native class, a tree of widgets and edited defaults. */
class ENGINELAYER_API UWidgetBlueprintGeneratedClass : public UClass
{
public:
	UWidgetBlueprintGeneratedClass(FName InName, UClass* InParent, std::vector<FWidgetTemplate> InTree);

	/** Makes the tree for a widget, binds its members and initialises it. */
	void InitializeWidget(UUserWidget& Widget) const;

protected:
	/** New widgets start with the defaults' values of the editable properties. */
	void PostConstruct(UObject& Object) override;

private:
	std::vector<FWidgetTemplate> Tree;
	std::vector<const FProperty*> EditableProperties;
};
