#include "HeaderTool.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <optional>
#include <sstream>

namespace
{

constexpr const char* Usage =
	R"(flitmark-header-tool --module NAME --package PACKAGE [--api MACRO] --output FOLDER [--uses HEADER]... HEADER...

Reads the reflection macros (UCLASS, UPROPERTY, UFUNCTION, UENUM, GENERATED_BODY, DECLARE_DYNAMIC_MULTICAST_DELEGATE...)
in a module's headers and writes X.generated.h and X.gen.cpp for each header X.h into FOLDER, unless they are unchanged.
Pass all headers of a module in one run, since its classes refer to each other; pass headers of other modules to which
they refer with --uses. Faults are reported as FILE:LINE: message, and then nothing is written.

Exit status: 0, 1 for a fault in a header or a file, 2 for wrong usage.
)";

std::optional<std::string> ReadFile(const std::filesystem::path& Path)
{
	std::ifstream Stream(Path, std::ios::binary);
	std::ostringstream Text;
	Text << Stream.rdbuf();
	return Stream.is_open() && !std::filesystem::is_directory(Path) ? std::optional(Text.str()) : std::nullopt;
}

/** Leaves a file with these contents alone, so that nothing is rebuilt because of it. */
bool WriteIfChanged(const std::filesystem::path& Path, const std::string& Text)
{
	if (ReadFile(Path) == Text)
	{
		return true;
	}
	std::ofstream Stream(Path, std::ios::binary | std::ios::trunc);
	Stream << Text;
	Stream.close();
	if (!Stream)
	{
		std::cerr << Path.string() << ": cannot be written: check that the folder exists and the disk has room\n";
	}
	return !Stream.fail();
}

int FailUse(const std::string& Message)
{
	std::cerr << "flitmark-header-tool: " << Message << "\n\n" << Usage;
	return 2;
}

} // namespace

int main(int Count, char** Arguments)
{
	std::map<std::string, std::string> Options{{"--module", ""}, {"--package", ""}, {"--api", ""}, {"--output", ""}};
	std::vector<FTextFile> Headers;
	std::vector<FTextFile> Used;
	for (int Index = 1; Index < Count; ++Index)
	{
		std::string Argument = Arguments[Index];
		if (Argument == "--help")
		{
			std::cout << Usage;
			return 0;
		}
		if (const auto Option = Options.find(Argument); Option != Options.end() && Index + 1 < Count)
		{
			Option->second = Arguments[++Index];
			continue;
		}
		const bool bUsed = Argument == "--uses" && Index + 1 < Count;
		Argument = bUsed ? Arguments[++Index] : Argument;
		if (Argument.starts_with("--"))
		{
			return FailUse("`" + Argument + "` is not an option or lacks its value");
		}
		else if (const std::optional<std::string> Text = ReadFile(Argument))
		{
			(bUsed ? Used : Headers).push_back({Argument, *Text});
		}
		else
		{
			std::cerr << Argument << ":1: cannot be read: check the path and its permissions\n";
			return 1;
		}
	}
	if (Options["--module"].empty() || Options["--package"].empty() || Options["--output"].empty() || Headers.empty())
	{
		return FailUse("--module, --package, --output and a header are needed");
	}
	const FGenerated Generated =
		GenerateReflection({Options["--module"], Options["--package"], Options["--api"]}, Headers, Used);
	for (const std::string& Error : Generated.Errors)
	{
		std::cerr << Error << "\n";
	}
	bool bWritten = Generated.Errors.empty();
	for (const FTextFile& File : Generated.Files)
	{
		bWritten = bWritten && WriteIfChanged(std::filesystem::path(Options["--output"]) / File.Path, File.Text);
	}
	return bWritten ? 0 : 1;
}
