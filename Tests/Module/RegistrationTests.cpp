#include "Blueprint/WidgetBlueprintBuilder.h"
#include "Components/Button.h"
#include "Components/CheckBox.h"
#include "Components/WrapBox.h"
#include "DanmakuSave.h"
#include "Files/FileText.h"
#include "UI_Danmaku.h"
#include "UI_DanmakuBar.h"
#include "UI_DanmakuNode.h"
#include "UI_DanmakuNodeSetting.h"
#include "UObject/GeneratedCppIncludes.h"

#include <gtest/gtest.h>

namespace Flitmark
{

namespace
{

/** The function that handles a sent comment takes the event's parameters. The list of classes has its own test. */
TEST(FRegistration, TheSendEventFitsItsHandler)
{
	const UFunction* Signature = FindPackageContents("/Script/Flitmark").Delegates.at(0);
	const UFunction* Handler = UUI_Danmaku::StaticClass()->FindFunctionByName(TEXT("OnDanmakuSend"));
	ASSERT_EQ(Handler->GetParameters().size(), Signature->GetParameters().size());
	for (std::size_t Index = 0; Index < Handler->GetParameters().size(); ++Index)
	{
		EXPECT_EQ(Handler->GetParameters()[Index].GetKind(), Signature->GetParameters()[Index].GetKind()) << Index;
	}
}

TEST(FRegistration, AFreshRecordHasNoFontSize)
{
	UClass* Class = UDanmakuSave::StaticClass();
	EXPECT_EQ(*Class->FindPropertyByName(TEXT("FontSize"))->ContainerPtrToValuePtr<int32>(Class->GetDefaultObject()),
			  0);
}

/** All of a class's bound widgets but one, which is missing or of the wrong type. */
std::string BuildWithout(UClass* Class, FName Missing, UClass* Instead)
{
	FWidgetBlueprintBuilder Builder(TEXT("WBP_Test"), Class);
	Builder.Add(UWrapBox::StaticClass(), TEXT("TestRoot"));
	for (const std::unique_ptr<FProperty>& Property : Class->GetOwnProperties())
	{
		UClass* Type = Property->GetFName() == Missing ? Instead : Property->GetReferencedClass();
		if (Property->GetMetaData().Find("BindWidget") != nullptr && Type != nullptr)
		{
			Builder.Add(Type, Property->GetFName(), TEXT("TestRoot"));
		}
	}
	std::string Error;
	return Builder.Build(Error) != nullptr ? "built" : Error;
}

TEST(FRegistration, RefusesABlueprintThatDoesNotFit)
{
	int32 NumBound = 0;
	for (UClass* Class : FindPackageContents("/Script/Flitmark").Classes)
	{
		for (const std::unique_ptr<FProperty>& Property : Class->GetOwnProperties())
		{
			if (Property->GetMetaData().Find("BindWidget") == nullptr)
			{
				continue;
			}
			++NumBound;
			UClass* Type = Property->GetReferencedClass();
			UClass* Other = Type == UButton::StaticClass() ? UCheckBox::StaticClass() : UButton::StaticClass();
			for (UClass* Instead : {static_cast<UClass*>(nullptr), Other})
			{
				const std::string Error = BuildWithout(Class, Property->GetFName(), Instead);
				for (const std::string& Named : {ToUtf8(Property->GetName()), Type->GetCppName(), Class->GetCppName()})
				{
					EXPECT_NE(Error.find(Named), std::string::npos) << Error;
				}
			}
			EXPECT_EQ(BuildWithout(Class, NAME_None, nullptr), "built");
		}
	}
	EXPECT_EQ(NumBound, 1 + 5 + 1 + 14);
}

} // namespace

} // namespace Flitmark
