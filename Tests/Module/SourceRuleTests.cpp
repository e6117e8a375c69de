#include "UObject/Class.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

/** Rules that keep the module's sources compiling in the engine, as far as reading them can tell. */
namespace Flitmark
{

namespace
{

namespace fs = std::filesystem;

struct FSource
{
	fs::path File;
	std::vector<std::string> Lines;
};

const fs::path Modules[] = {fs::path(SOURCE_DIRECTORY) / "Flitmark", fs::path(SOURCE_DIRECTORY) / "FlitmarkWidgets"};

/** The files in that folder of both modules. */
std::vector<FSource> ReadSources(const char* Folder)
{
	std::vector<FSource> Sources;
	for (const fs::path& Module : Modules)
	{
		for (const fs::directory_entry& Entry : fs::directory_iterator(Module / Folder))
		{
			FSource& Source = Sources.emplace_back();
			Source.File = Entry.path();
			std::ifstream Stream(Entry.path());
			for (std::string Line; std::getline(Stream, Line);)
			{
				Source.Lines.push_back(Line);
			}
		}
	}
	return Sources;
}

/** What a line includes, with its quotes or brackets; empty for any other line. */
std::string GetIncluded(const std::string& Line)
{
	constexpr std::string_view Directive = "#include ";
	return Line.starts_with(Directive) ? Line.substr(Directive.size()) : std::string();
}

std::vector<std::string> GetIncludes(const FSource& Source)
{
	std::vector<std::string> Includes;
	for (const std::string& Line : Source.Lines)
	{
		if (!GetIncluded(Line).empty())
		{
			Includes.push_back(GetIncluded(Line));
		}
	}
	return Includes;
}

/** The engine headers that the module may use: Core's and those of the modules that its build file names. */
bool IsEngineHeader(const std::string& Included)
{
	static const std::set<std::string> Headers = {
		"\"Blueprint/UserWidget.h\"",
		"\"Blueprint/WidgetTree.h\"",
		"\"Components/Border.h\"",
		"\"Components/Button.h\"",
		"\"Components/CanvasPanel.h\"",
		"\"Components/CanvasPanelSlot.h\"",
		"\"Components/CheckBox.h\"",
		"\"Components/EditableText.h\"",
		"\"Components/HorizontalBox.h\"",
		"\"Components/HorizontalBoxSlot.h\"",
		"\"Components/Image.h\"",
		"\"Components/Overlay.h\"",
		"\"Components/OverlaySlot.h\"",
		"\"Components/PanelWidget.h\"",
		"\"Components/TextBlock.h\"",
		"\"Components/VerticalBox.h\"",
		"\"Components/VerticalBoxSlot.h\"",
		"\"Components/WrapBox.h\"",
		"\"CoreMinimal.h\"",
		"\"Dom/JsonObject.h\"",
		"\"Dom/JsonValue.h\"",
		"\"Engine/EngineTypes.h\"",
		"\"Engine/World.h\"",
		"\"GameFramework/SaveGame.h\"",
		"\"Input/Events.h\"",
		"\"Kismet/GameplayStatics.h\"",
		"\"Kismet/KismetStringLibrary.h\"",
		"\"MediaPlayer.h\"",
		"\"MediaTexture.h\"",
		"\"Misc/FileHelper.h\"",
		"\"Modules/ModuleManager.h\"",
		"\"Serialization/JsonReader.h\"",
		"\"Serialization/JsonSerializer.h\"",
		"\"Templates/SubclassOf.h\"",
		"\"TimerManager.h\"",
		"\"Types/SlateEnums.h\"",
		"\"UObject/Object.h\"",
		"\"UObject/ObjectMacros.h\"",
		"\"UObject/ObjectPtr.h\"",
		"\"UObject/UnrealType.h\"",
	};
	return Headers.contains(Included);
}

TEST(FSourceRules, PublicHeadersUseNothingOfTheStandardLibrary)
{
	for (const FSource& Source : ReadSources("Public"))
	{
		for (const std::string& Line : Source.Lines)
		{
			EXPECT_EQ(Line.find("std::"), std::string::npos) << Source.File << ": " << Line;
		}
	}
}

TEST(FSourceRules, NothingIsIncludedThatTheEngineLacks)
{
	for (const char* Folder : {"Public", "Private"})
	{
		for (const FSource& Source : ReadSources(Folder))
		{
			for (const std::string& Included : GetIncludes(Source))
			{
				const std::string Name = Included.substr(1, Included.size() - 2);
				const std::string Header =
					Name.ends_with(".generated.h") ? Name.substr(0, Name.size() - 12) + ".h" : Name;
				const bool bOwn = fs::exists(Modules[0] / "Public" / Header) ||
								  fs::exists(Source.File.parent_path().parent_path() / "Public" / Header) ||
								  fs::exists(Source.File.parent_path() / Header);
				EXPECT_TRUE(bOwn || IsEngineHeader(Included) || Included == "<cstdlib>")
					<< Source.File << ": " << Included;
			}
		}
	}
}

TEST(FSourceRules, GeneratedHeadersComeLast)
{
	const std::vector<FSource> Headers = ReadSources("Public");
	EXPECT_EQ(Headers.size(), 15u);
	for (const FSource& Source : Headers)
	{
		const std::vector<std::string> Includes = GetIncludes(Source);
		ASSERT_FALSE(Includes.empty()) << Source.File;
		EXPECT_EQ(Source.Lines.front(), "#pragma once") << Source.File;
		EXPECT_EQ(Includes.back(), "\"" + Source.File.stem().string() + ".generated.h\"") << Source.File;
		EXPECT_EQ(
			std::ranges::count_if(Includes, [](const std::string& Each) { return Each.ends_with(".generated.h\""); }),
			1)
			<< Source.File;
	}
}

/** A handler that is subscribed by name but not reflected is never called, without any error. */
TEST(FSourceRules, HandlersBoundByNameAreReflected)
{
	// Builds the classes, so that they can be found by name.
	ASSERT_FALSE(FindPackageContents("/Script/Flitmark").Classes.empty());
	ASSERT_FALSE(FindPackageContents("/Script/FlitmarkWidgets").Classes.empty());
	const std::string Mark = "Dynamic(this, &";
	int Bindings = 0;
	for (const FSource& Source : ReadSources("Private"))
	{
		for (const std::string& Line : Source.Lines)
		{
			const std::size_t Start = Line.find(Mark);
			const std::size_t Colons = Line.find("::", Start == std::string::npos ? Line.size() : Start);
			if (Colons == std::string::npos)
			{
				continue;
			}
			++Bindings;
			const std::size_t ClassStart = Start + Mark.size();
			const UClass* Class = FindClassByName(Line.substr(ClassStart, Colons - ClassStart));
			ASSERT_NE(Class, nullptr) << Source.File << ": " << Line;
			const std::string Function = Line.substr(Colons + 2, Line.find(')', Colons) - Colons - 2);
			EXPECT_NE(Class->FindFunctionByName(FName(FStringView(std::u16string(Function.begin(), Function.end())))),
					  nullptr)
				<< Source.File << ": " << Line;
		}
	}
	EXPECT_GE(Bindings, 17) << "the pattern finds the subscriptions no more";
}

/** What only the engine's build tool reads, and no compiler here. */
TEST(FSourceRules, BuildFileAsksForWhatTheSourcesNeed)
{
	std::ifstream Stream(Modules[0] / "Flitmark.Build.cs");
	const std::string Rules{std::istreambuf_iterator<char>(Stream), {}};
	for (const char* Rule : {"FPSemantics = FPSemanticsMode.Precise;", "PCHUsage = PCHUsageMode.NoSharedPCHs;"})
	{
		EXPECT_NE(Rules.find(Rule), std::string::npos) << Rule;
	}
	// Whoever includes a public header needs the modules whose headers it includes.
	const std::size_t Private = Rules.find("PrivateDependencyModuleNames");
	for (const char* Module :
		 {"\"Core\"", "\"CoreUObject\"", "\"Engine\"", "\"UMG\"", "\"MediaAssets\"", "\"Slate\"", "\"SlateCore\""})
	{
		EXPECT_LT(Rules.find(Module), Private) << Module;
	}
	const std::string Mark = "PrivatePCHHeaderFile = \"";
	const std::size_t Start = Rules.find(Mark) + Mark.size();
	const std::string Header = Rules.substr(Start, Rules.find('"', Start) - Start);
	EXPECT_TRUE(fs::is_regular_file(Modules[0] / Header)) << Header;
}

TEST(FSourceRules, EverySourceStartsWithItsHeader)
{
	for (const FSource& Source : ReadSources("Private"))
	{
		const fs::path Header =
			Source.File.parent_path().parent_path() / "Public" / (Source.File.stem().string() + ".h");
		if (fs::exists(Header))
		{
			EXPECT_EQ(Source.Lines.front(), "#include \"" + Header.filename().string() + "\"") << Source.File;
		}
	}
}

} // namespace

} // namespace Flitmark
