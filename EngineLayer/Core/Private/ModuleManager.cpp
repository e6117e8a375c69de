#include "Modules/ModuleManager.h"

#include <algorithm>
#include <dlfcn.h>
#include <filesystem>
#include <system_error>

namespace
{

FModuleManager::FReleaseObjects ReleaseObjects = nullptr;

/** Module names are identifiers: ASCII. */
std::string ToNarrow(FName Name)
{
	const FString Text = Name.ToString();
	std::string Narrow;
	std::ranges::transform(Text.GetStd(), std::back_inserter(Narrow),
						   [](TCHAR Character) { return Character < 0x80 ? static_cast<char>(Character) : '?'; });
	return Narrow;
}

/** The folder of the layer's own library; modules are built and installed next to it. */
std::string GetLayerDirectory()
{
	Dl_info Info{};
	const bool bFound = dladdr(reinterpret_cast<const void*>(&GetLayerDirectory), &Info) != 0;
	return bFound ? std::filesystem::path(Info.dli_fname).parent_path().lexically_normal().string() : std::string();
}

} // namespace

FModuleManager& FModuleManager::Get()
{
	static FModuleManager Manager;
	return Manager;
}

void FModuleManager::SetReleaseObjects(FReleaseObjects InReleaseObjects)
{
	ReleaseObjects = InReleaseObjects;
}

void FModuleManager::AddBinariesDirectory(const std::string& InDirectory)
{
	Directories.push_back(InDirectory);
}

void* FModuleManager::OpenLibrary(const std::string& InFileName, std::string& OutError) const
{
	std::vector<std::string> Searched = Directories;
	Searched.push_back(GetLayerDirectory());
	for (const std::string& Directory : Searched)
	{
		const std::filesystem::path Path = std::filesystem::path(Directory) / InFileName;
		std::error_code Error;
		if (!std::filesystem::exists(Path, Error))
		{
			continue;
		}
		void* Library = dlopen(Path.c_str(), RTLD_NOW | RTLD_LOCAL);
		if (Library == nullptr)
		{
			OutError = Path.string() + " cannot be loaded: " + dlerror();
		}
		return Library;
	}
	OutError = InFileName + " is in none of the folders searched:";
	for (const std::string& Directory : Searched)
	{
		OutError += " " + Directory;
	}
	return nullptr;
}

IModuleInterface* FModuleManager::LoadModule(FName InModuleName, std::string& OutError)
{
	if (IModuleInterface* Loaded = GetModule(InModuleName))
	{
		return Loaded;
	}
	const std::string FileName = "libUnrealEditor-" + ToNarrow(InModuleName) + ".so";
	void* Library = OpenLibrary(FileName, OutError);
	if (Library == nullptr)
	{
		return nullptr;
	}
	using FInitializeModule = IModuleInterface* (*)();
	const auto Initialize = reinterpret_cast<FInitializeModule>(dlsym(Library, "InitializeModule"));
	IModuleInterface* Interface = Initialize != nullptr ? Initialize() : nullptr;
	if (Interface == nullptr)
	{
		OutError = FileName + " is not a module: its InitializeModule is missing or returns nothing";
		dlclose(Library);
		return nullptr;
	}
	Modules.push_back({InModuleName, Library, std::unique_ptr<IModuleInterface>(Interface)});
	Interface->StartupModule();
	return Interface;
}

IModuleInterface* FModuleManager::LoadModule(FName InModuleName)
{
	std::string Ignored;
	return LoadModule(InModuleName, Ignored);
}

IModuleInterface* FModuleManager::GetModule(FName InModuleName) const
{
	const auto Found = std::ranges::find(Modules, InModuleName, &FLoadedModule::Name);
	return Found != Modules.end() ? Found->Interface.get() : nullptr;
}

bool FModuleManager::UnloadModule(FName InModuleName, std::string& OutError)
{
	const auto Found = std::ranges::find(Modules, InModuleName, &FLoadedModule::Name);
	if (Found == Modules.end())
	{
		OutError = "module " + ToNarrow(InModuleName) + " is not loaded";
		return false;
	}
	if (ReleaseObjects != nullptr && !ReleaseObjects("/Script/" + ToNarrow(InModuleName), OutError))
	{
		return false;
	}
	FLoadedModule Module = std::move(*Found);
	Modules.erase(Found);
	Module.Interface->PreUnloadCallback();
	Module.Interface->ShutdownModule();
	// Its code lives in the library.
	Module.Interface.reset();
	dlclose(Module.Library);
	return true;
}

bool FModuleManager::UnloadModule(FName InModuleName)
{
	std::string Ignored;
	return UnloadModule(InModuleName, Ignored);
}
