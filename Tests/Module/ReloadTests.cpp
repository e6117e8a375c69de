#include "Modules/ModuleManager.h"
#include "UObject/Class.h"

#include <gtest/gtest.h>

/** The module's own library, which this program does not link: it lies beside the layer's. */
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

		// Held by nothing: collected before the library goes.
		const FWeakObjectPtr Track(NewObject<UObject>(GetTransientPackage(), Class));
		ASSERT_TRUE(Track.IsValid());
		EXPECT_TRUE(Track.Get()->IsA(Class));
		ASSERT_TRUE(Manager.UnloadModule(Name, Error)) << Error;
		EXPECT_FALSE(Track.IsValid());
		EXPECT_TRUE(FindPackageContents("/Script/Flitmark").Classes.empty());
	}
}
