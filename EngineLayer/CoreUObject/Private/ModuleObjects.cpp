#include "Modules/ModuleManager.h"
#include "UObject/Class.h"

#include <algorithm>

namespace
{

/**
 * Whether an object is an instance of one of the classes, or the record of a class derived from one. Default objects go
 * with their class.
 */
bool DependsOn(const UObject& Object, const std::vector<UClass*>& Classes)
{
	if (Object.GetClass() != nullptr)
	{
		return !Object.HasAnyFlags(RF_ClassDefaultObject) &&
			   std::ranges::any_of(Classes, [&](const UClass* Each) { return Object.IsA(Each); });
	}
	const UClass& Record = static_cast<const UClass&>(Object);
	return std::ranges::find(Classes, &Record) == Classes.end() &&
		   std::ranges::any_of(Classes, [&](const UClass* Each) { return Record.IsChildOf(Each); });
}

/** A module's code must not go away while objects need it. */
bool ReleasePackageObjects(const std::string& PackageName, std::string& OutError)
{
	CollectGarbage();
	const std::vector<UClass*> Classes = FindPackageContents(PackageName).Classes;
	int32 NumLeft = 0;
	std::string FirstClass;
	for (int32 Index = 0; Index < FObjectSlots::Num(); ++Index)
	{
		const UObject* Object = FObjectSlots::Get(Index);
		if (Object != nullptr && DependsOn(*Object, Classes))
		{
			const UClass* Class = Object->GetClass();
			FirstClass = Class != nullptr ? Class->GetCppName() : "a class made of it";
			++NumLeft;
		}
	}
	if (NumLeft == 0)
	{
		return true;
	}
	OutError = PackageName + " is still in use by " + std::to_string(NumLeft) + " objects, one of them " + FirstClass +
			   ": let go of them first";
	return false;
}

[[maybe_unused]] const bool bHooked = (FModuleManager::SetReleaseObjects(&ReleasePackageObjects), true);

} // namespace
