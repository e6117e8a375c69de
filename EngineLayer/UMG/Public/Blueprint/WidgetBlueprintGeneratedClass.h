#pragma once

#include "Blueprint/UserWidget.h"

#include <functional>
#include <vector>

/** One widget of a blueprint's tree. */
struct FWidgetTemplate
{
	UClass* Class = nullptr;
	FName Name;
	/** Index in the tree's list of the panel around it; INDEX_NONE for the root. */
	int32 Parent = INDEX_NONE;
	/** Sets the widget up as the designer left it; may be empty. */
	std::function<void(UWidget&)> Setup;
	/** The class's member bound to it; null if there is none. */
	const FProperty* BoundMember = nullptr;
};

/** A widget blueprint's class: a native class, a tree of widgets, and edited defaults. */
class ENGINELAYER_API UWidgetBlueprintGeneratedClass : public UClass
{
public:
	UWidgetBlueprintGeneratedClass(FName InName, UClass* InParent, std::vector<FWidgetTemplate> InTree);

	/** Makes a widget's tree, binds its members, and initializes it. */
	void InitializeWidget(UUserWidget& Widget) const;

protected:
	/** New widgets start with these values of the editable properties. */
	void PostConstruct(UObject& Object) override;

private:
	std::vector<FWidgetTemplate> Tree;
	std::vector<const FProperty*> EditableProperties;
};
