#include "LayerFixture.h"

#include "Kismet/GameplayStatics.h"
#include "Modules/ModuleManager.h"

#include <dlfcn.h>
#include <fstream>

namespace
{

class FModules : public FLayerFixture
{
protected:
	FModules()
	{
		static const bool bAdded = (FModuleManager::Get().AddBinariesDirectory(RELOAD_MODULE_DIRECTORY), true);
		static_cast<void>(bAdded);
	}

	static bool IsMapped()
	{
		void* Library = dlopen(RELOAD_MODULE_DIRECTORY "/libUnrealEditor-LayerReload.so", RTLD_NOW | RTLD_NOLOAD);
		if (Library != nullptr)
		{
			dlclose(Library);
		}
		return Library != nullptr;
	}

	FModuleManager& Manager = FModuleManager::Get();
	std::string Error;
};

TEST_F(FModules, AreLoadedUnloadedAndLoadedAgain)
{
	const FName Name(TEXT("LayerReload"));
	for (int32 Round = 0; Round < 3; ++Round)
	{
		EXPECT_EQ(FindClassByName("UReloadProbe"), nullptr);
		IModuleInterface* Module = Manager.LoadModule(Name, Error);
		ASSERT_NE(Module, nullptr) << Error;
		EXPECT_EQ(Manager.LoadModule(Name, Error), Module) << "loaded once";
		EXPECT_TRUE(Module->SupportsDynamicReloading());
		EXPECT_FALSE(Module->IsGameModule());

		UClass* Class = FindClassByName("UReloadProbe");
		ASSERT_NE(Class, nullptr);
		EXPECT_EQ(FindPackageContents("/Script/LayerReload").Classes, std::vector<UClass*>{Class});
		USaveGame* Probe = NewObject<USaveGame>(World, Class);
		EXPECT_TRUE(Probe->IsA<USaveGame>() && Probe->IsA(Class));
		TArray<uint8> Saved;
		EXPECT_TRUE(UGameplayStatics::SaveGameToMemory(Probe, Saved));
		ASSERT_NE(UGameplayStatics::LoadGameFromMemory(Saved), nullptr);
		EXPECT_EQ(World->GetTimerManager().Num(), Round + 1);

		Probe->AddToRoot();
		EXPECT_FALSE(Manager.UnloadModule(Name, Error));
		EXPECT_NE(Error.find("1 objects, one of them UReloadProbe"), std::string::npos) << Error;
		EXPECT_TRUE(Manager.IsModuleLoaded(Name));
		Probe->RemoveFromRoot();
		EXPECT_TRUE(Manager.UnloadModule(Name, Error)) << Error;
		EXPECT_FALSE(Manager.IsModuleLoaded(Name));
		EXPECT_FALSE(IsMapped());
		EXPECT_EQ(UGameplayStatics::LoadGameFromMemory(Saved), nullptr) << "its class is not known now";
		EXPECT_TRUE(FindPackageContents("/Script/LayerReload").Classes.empty());
	}
	// What the probes left there no longer belongs to a module.
	World->GetTimerManager().Tick(2.f);
	EXPECT_EQ(World->GetTimerManager().Num(), 0);
	EXPECT_FALSE(Manager.UnloadModule(Name, Error));
	EXPECT_NE(Error.find("not loaded"), std::string::npos);
}

TEST_F(FModules, ThatAreNoneAreRefusedWithTheReason)
{
	EXPECT_EQ(Manager.LoadModule(TEXT("Nowhere"), Error), nullptr);
	EXPECT_NE(Error.find("libUnrealEditor-Nowhere.so is in none of the folders"), std::string::npos) << Error;
	EXPECT_NE(Error.find(RELOAD_MODULE_DIRECTORY), std::string::npos) << Error;
	std::ofstream(RELOAD_MODULE_DIRECTORY "/libUnrealEditor-Broken.so") << "no library";
	EXPECT_EQ(Manager.LoadModule(TEXT("Broken"), Error), nullptr);
	EXPECT_NE(Error.find("cannot be loaded"), std::string::npos) << Error;
	EXPECT_EQ(Manager.LoadModule(TEXT("LayerNoEntry"), Error), nullptr);
	EXPECT_NE(Error.find("InitializeModule"), std::string::npos) << Error;
	EXPECT_FALSE(Manager.IsModuleLoaded(TEXT("LayerNoEntry")));
}

} // namespace
