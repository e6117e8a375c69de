#pragma once

#include "Blueprint/WidgetBlueprintGeneratedClass.h"

#include <memory>
#include <string>

/**
 * Builds a widget blueprint in code: a parent class and a tree of named widgets, the first of which is the root.
 * Building checks every bound-widget member of the parent class by name and type.
 */
class ENGINELAYER_API FWidgetBlueprintBuilder
{
public:
	FWidgetBlueprintBuilder(const TCHAR* InName, UClass* InParentClass);

	/** Adds a widget; InPanel: name of the panel that holds it, NAME_None for the root. */
	FWidgetBlueprintBuilder& Add(UClass* InClass, FName InName, FName InPanel = NAME_None,
								 std::function<void(UWidget&)> InSetup = {});

	/** Null if a bound widget is missing or of another type; OutError then names widget, type and class. */
	std::unique_ptr<UWidgetBlueprintGeneratedClass> Build(std::string& OutError);

private:
	/** Why such a widget can't be added; null if it can. */
	const char* FindFault(const UClass* InClass, FName InName, FName InPanel) const;
	bool BindMembers(std::string& OutError);

	FName Name;
	UClass* ParentClass;
	std::vector<FWidgetTemplate> Tree;
	std::string FirstError;
};
