#include "ReflectCommand.h"

#include "ExitCodes.h"
#include "Files.h"
#include "ModuleListing.h"
#include "Modules/ModuleManager.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>
#include <vector>

namespace Flitmark
{

namespace
{

int RunReflect(bool bJson)
{
	std::vector<FModuleListing> Listings;
	for (const char* Name : {"Flitmark", "FlitmarkWidgets"})
	{
		std::string Error;
		IModuleInterface* Module = FModuleManager::Get().LoadModule(*FromUtf8(Name), Error);
		if (Module == nullptr)
		{
			std::cerr << "flitmark: " << Error << "\n";
			return ExitFailure;
		}
		Listings.push_back(FModuleListing::Make(Name, *Module));
	}
	std::cout << (bJson ? Listings[0].ToJson(&Listings[1]) : Listings[0].ToText() + "\n" + Listings[1].ToText())
			  << std::flush;
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
		"reflect", "List the modules' classes, bound widgets, settings and handlers, as the engine sees them");
	Command->add_flag("--json", *bJson,
					  "One JSON object, for programs: the module's, with the other's as \"ready_made\"");
	Command->footer(
		"Use it to check a widget blueprint: every \"bound widget\" must stand in its tree by that name and\n"
		"with that type.");
	Command->callback([bJson, &OutExitCode] { OutExitCode = RunReflect(*bJson); });
}

} // namespace Flitmark
