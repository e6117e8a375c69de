#pragma once

#include "Modules/ModuleInterface.h"
#include "UObject/NameTypes.h"

#include <memory>
#include <string>
#include <vector>

/** Loads modules out of their libraries, libUnrealEditor-NAME.so, and unloads them. Game thread. */
class ENGINELAYER_API FModuleManager
{
public:
	static FModuleManager& Get();
	FModuleManager(const FModuleManager&) = delete;
	FModuleManager& operator=(const FModuleManager&) = delete;

	/** Where to look for libraries before looking in the folder of the layer's own library. InDirectory: UTF-8. */
	void AddBinariesDirectory(const std::string& InDirectory);

	/** The module, loaded and started if it isn't yet; null with OutError set if that fails. */
	IModuleInterface* LoadModule(FName InModuleName, std::string& OutError);
	IModuleInterface* LoadModule(FName InModuleName);
	/** Null if the module is not loaded. */
	IModuleInterface* GetModule(FName InModuleName) const;
	bool IsModuleLoaded(FName InModuleName) const { return GetModule(InModuleName) != nullptr; }

	/**
	 * Collects garbage, then shuts the module down and unloads its library. False with OutError set, and the module
	 * stays loaded, if objects of its classes are still in use.
	 */
	bool UnloadModule(FName InModuleName, std::string& OutError);
	bool UnloadModule(FName InModuleName);

	/** Destroys a package's remaining objects; false with the reason if some are still in use. */
	using FReleaseObjects = bool (*)(const std::string& PackageName, std::string& OutError);
	/** The object system hooks itself in, since this folder must not depend on it. */
	static void SetReleaseObjects(FReleaseObjects InReleaseObjects);

private:
	struct FLoadedModule
	{
		FName Name;
		void* Library = nullptr;
		std::unique_ptr<IModuleInterface> Interface;
	};

	FModuleManager() = default;
	void* OpenLibrary(const std::string& InFileName, std::string& OutError) const;

	std::vector<std::string> Directories;
	std::vector<FLoadedModule> Modules;
};

/** A module's library returns a module object, which the caller owns. */
#define IMPLEMENT_MODULE(ModuleImplClass, ModuleName)                                                                  \
	extern "C" DLLEXPORT IModuleInterface* InitializeModule()                                                          \
	{                                                                                                                  \
		return new ModuleImplClass();                                                                                  \
	}
