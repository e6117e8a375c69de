#include "Modules/ModuleManager.h"
#include "UObject/Class.h"

#include <gtest/gtest.h>

/** The module's own library, which this program does not link: it is next to the layer's. */
TEST(FReload, ClassesComeAndGoWithTheLibrary)
{
	FModuleManager& Manager = FModuleManager::Get();
	const FName Name(TEXT("Flitmark"));
	for (int32 Round = 0; Round < 3; ++Round)
	{
		EXPECT_EQ(FindClassByName("UDanmakuTrack"), nullptr);
		std::string Error;
		ASSERT_NE(Manager.LoadModule(Name, Error), nullptr) << Error;
		EXPECT_EQ(FindPackageContents("/Script/Flitmark").Classes.size(), 7u);
		UClass* Class = FindClassByName("UDanmakuTrack");
		ASSERT_NE(Class, nullptr);

		// Referenced by nothing: collected before the library is unloaded.
		const FWeakObjectPtr Track(NewObject<UObject>(GetTransientPackage(), Class));
		ASSERT_TRUE(Track.IsValid());
		EXPECT_TRUE(Track.Get()->IsA(Class));
		ASSERT_TRUE(Manager.UnloadModule(Name, Error)) << Error;
		EXPECT_FALSE(Track.IsValid());
		EXPECT_TRUE(FindPackageContents("/Script/Flitmark").Classes.empty());
	}
}

/** The second module depends on the first, so it is unloaded first. */
TEST(FReload, TheReadyMadeWidgetsGoBeforeTheirBases)
{
	FModuleManager& Manager = FModuleManager::Get();
	const FName Base(TEXT("Flitmark"));
	const FName Widgets(TEXT("FlitmarkWidgets"));
	for (int32 Round = 0; Round < 2; ++Round)
	{
		std::string Error;
		ASSERT_NE(Manager.LoadModule(Base, Error), nullptr) << Error;
		ASSERT_NE(Manager.LoadModule(Widgets, Error), nullptr) << Error;
		UClass* Class = FindClassByName("UFlitmarkComment");
		ASSERT_NE(Class, nullptr);
		EXPECT_NE(NewObject<UObject>(GetTransientPackage(), Class), nullptr);
		EXPECT_FALSE(Manager.UnloadModule(Base, Error));
		EXPECT_NE(Error.find("still in use"), std::string::npos) << Error;
		ASSERT_TRUE(Manager.UnloadModule(Widgets, Error)) << Error;
		EXPECT_EQ(FindClassByName("UFlitmarkComment"), nullptr);
		EXPECT_NE(FindClassByName("UUI_DanmakuNode"), nullptr);
		ASSERT_TRUE(Manager.UnloadModule(Base, Error)) << Error;
		EXPECT_EQ(FindClassByName("UUI_DanmakuNode"), nullptr);
	}
}
