#pragma once

#include "Blueprint/WidgetBlueprintBuilder.h"

#include <memory>
#include <string>

namespace Flitmark
{

/** The widget blueprints of the hosts: what a game developer would make in the engine's editor. */
struct FStageBlueprints
{
	/** What holds the others. */
	std::unique_ptr<UWidgetBlueprintGeneratedClass> Screen;
	std::unique_ptr<UWidgetBlueprintGeneratedClass> Overlay;
	std::unique_ptr<UWidgetBlueprintGeneratedClass> Comment;
	std::unique_ptr<UWidgetBlueprintGeneratedClass> ViewerComment;
	std::unique_ptr<UWidgetBlueprintGeneratedClass> Bar;
	std::unique_ptr<UWidgetBlueprintGeneratedClass> Panel;

	/** False with OutError set where a tree does not fit its class. */
	bool Build(std::string& OutError);
};

} // namespace Flitmark
