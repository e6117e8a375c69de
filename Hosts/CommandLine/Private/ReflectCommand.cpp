#include "Commands.h"

#include "ExitCodes.h"
#include "Message.h"
#include "ModuleListing.h"
#include "Modules/ModuleManager.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>

namespace Flitmark
{

namespace
{

int RunReflect(bool bInJson)
{
	std::string Error;
	IModuleInterface* Module = FModuleManager::Get().LoadModule(TEXT("Flitmark"), Error);
	if (Module == nullptr)
	{
		return PrintError(Error);
	}
	const FModuleListing Listing = FModuleListing::Make("Flitmark", *Module);
	std::fputs((bInJson ? Listing.ToJson() : Listing.ToText()).c_str(), stdout);
	return ExitSuccess;
}

} // namespace

void AddReflectCommand(CLI::App& InApp, int& OutExitCode)
{
	const auto bJson = std::make_shared<bool>(false);
	CLI::App* Command = InApp.add_subcommand(
		"reflect", "List the module's classes, bound widgets, settings and handlers as the engine sees them");
	Command->add_flag("--json", *bJson, "Print one JSON object, for programs");
	Command->footer(
		"Use it to check a widget blueprint: every \"bound widget\" must be in its tree by that name and type.");
	Command->callback([bJson, &OutExitCode] { OutExitCode = RunReflect(*bJson); });
}

} // namespace Flitmark
