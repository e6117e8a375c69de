#include "ReflectCommand.h"

#include "ExitCodes.h"
#include "ModuleListing.h"
#include "Modules/ModuleManager.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>

namespace Flitmark
{

namespace
{

int RunReflect(bool bJson)
{
	std::string Error;
	IModuleInterface* Module = FModuleManager::Get().LoadModule(TEXT("Flitmark"), Error);
	if (Module == nullptr)
	{
		std::cerr << "flitmark: " << Error << "\n";
		return ExitFailure;
	}
	const FModuleListing Listing = FModuleListing::Make("Flitmark", *Module);
	std::cout << (bJson ? Listing.ToJson() : Listing.ToText()) << std::flush;
	if (!std::cout)
	{
		std::cerr << "flitmark: the listing cannot be written to the standard output\n";
		return ExitFailure;
	}
	return ExitSuccess;
}

} // namespace

void AddReflectCommand(CLI::App& App, int& OutExitCode)
{
	const auto bJson = std::make_shared<bool>(false);
	CLI::App* Command = App.add_subcommand(
		"reflect", "List the module's classes, bound widgets, settings and handlers, as the engine sees them");
	Command->add_flag("--json", *bJson, "One JSON object, for programs");
	Command->footer(
		"Use it to check a widget blueprint: every \"bound widget\" must stand in its tree by that name and\n"
		"with that type.");
	Command->callback([bJson, &OutExitCode] { OutExitCode = RunReflect(*bJson); });
}

} // namespace Flitmark
