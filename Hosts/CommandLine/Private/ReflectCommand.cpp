#include "Commands.h"

#include "ExitCodes.h"
#include "Files/FileText.h"
#include "Message.h"
#include "ModuleListing.h"
#include "Modules/ModuleManager.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>
#include <vector>

namespace Flitmark
{

namespace
{

int RunReflect(bool bInJson)
{
	std::vector<FModuleListing> Listings;
	for (const char* Name : {"Flitmark", "FlitmarkWidgets"})
	{
		std::string Error;
		IModuleInterface* Module = FModuleManager::Get().LoadModule(*FromUtf8(Name), Error);
		if (Module == nullptr)
		{
			return PrintError(Error);
		}
		Listings.push_back(FModuleListing::Make(Name, *Module));
	}
	const std::string Listing =
		bInJson ? Listings[0].ToJson(&Listings[1]) : Listings[0].ToText() + "\n" + Listings[1].ToText();
	std::fputs(Listing.c_str(), stdout);
	return ExitSuccess;
}

} // namespace

void AddReflectCommand(CLI::App& InApp, int& OutExitCode)
{
	const auto bJson = std::make_shared<bool>(false);
	CLI::App* Command = InApp.add_subcommand(
		"reflect", "List the modules' classes, bound widgets, settings and handlers as the engine sees them");
	Command->add_flag("--json", *bJson, "Print one JSON object, for programs");
	Command->footer(
		"Use it to check a widget blueprint: every \"bound widget\" must be in its tree by that name and type.");
	Command->callback([bJson, &OutExitCode] { OutExitCode = RunReflect(*bJson); });
}

} // namespace Flitmark
