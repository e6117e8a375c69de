#include "UObject/Class.h"
#include "UObject/GeneratedCppIncludes.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace UECodeGen_Private
{

namespace
{

/**
 * What the libraries registered, in load order, and the layer's own class records, which live until the process ends.
 */
struct FRegistry
{
	std::vector<const FCompiledInInfo*> Infos;
	std::vector<std::unique_ptr<UClass>> Classes;
	std::vector<std::unique_ptr<UEnum>> Enums;
	std::vector<std::unique_ptr<UFunction>> Functions;
};

FRegistry& GetRegistry()
{
	static FRegistry Registry;
	return Registry;
}

/** The type in Storage, built on the first call. */
template <class T, class MakeType>
T* GetOrMake(T*& Storage, std::vector<std::unique_ptr<T>>& Owner, MakeType&& Make)
{
	if (Storage == nullptr)
	{
		std::unique_ptr<T> Made = Make();
		Storage = Made.get();
		Owner.push_back(std::move(Made));
	}
	return Storage;
}

template <class T>
void Drop(T** Storage, std::vector<std::unique_ptr<T>>& Owner)
{
	std::erase_if(Owner, [Storage](const std::unique_ptr<T>& Each) { return Each.get() == *Storage; });
	*Storage = nullptr;
}

} // namespace

UClass* ConstructUClass(UClass*& OutClass, const FClassParams& Params)
{
	if (OutClass == nullptr)
	{
		// Before the record itself: a class's base is always built first.
		UClass* Super = Params.SuperGetter != nullptr ? Params.SuperGetter() : nullptr;
		GetOrMake(OutClass, GetRegistry().Classes, [&] { return std::make_unique<UClass>(Params, Super); });
	}
	return OutClass;
}

UEnum* ConstructUEnum(UEnum*& OutEnum, const FEnumParams& Params)
{
	return GetOrMake(OutEnum, GetRegistry().Enums, [&] { return std::make_unique<UEnum>(Params); });
}

UFunction* ConstructUDelegateFunction(UFunction*& OutFunction, const FFunctionParams& Params)
{
	return GetOrMake(OutFunction, GetRegistry().Functions, [&] { return std::make_unique<UFunction>(Params); });
}

FRegisterCompiledInInfo::FRegisterCompiledInInfo(const FCompiledInInfo& InInfo)
	: Info(InInfo)
{
	GetRegistry().Infos.push_back(&Info);
}

FRegisterCompiledInInfo::~FRegisterCompiledInInfo()
{
	FRegistry& Registry = GetRegistry();
	std::erase(Registry.Infos, &Info);
	for (int32 Index = 0; Index < Info.NumClasses; ++Index)
	{
		Drop(Info.Classes[Index].Storage, Registry.Classes);
	}
	for (int32 Index = 0; Index < Info.NumEnums; ++Index)
	{
		Drop(Info.Enums[Index].Storage, Registry.Enums);
	}
	for (int32 Index = 0; Index < Info.NumDelegates; ++Index)
	{
		Drop(Info.Delegates[Index].Storage, Registry.Functions);
	}
}

} // namespace UECodeGen_Private

FPackageContents FindPackageContents(std::string_view InPackageName)
{
	FPackageContents Contents;
	for (const UECodeGen_Private::FCompiledInInfo* Info : UECodeGen_Private::GetRegistry().Infos)
	{
		if (InPackageName != Info->PackageName)
		{
			continue;
		}
		for (int32 Index = 0; Index < Info->NumClasses; ++Index)
		{
			Contents.Classes.push_back(Info->Classes[Index].Getter());
		}
		for (int32 Index = 0; Index < Info->NumEnums; ++Index)
		{
			Contents.Enums.push_back(Info->Enums[Index].Getter());
		}
		for (int32 Index = 0; Index < Info->NumDelegates; ++Index)
		{
			Contents.Delegates.push_back(Info->Delegates[Index].Getter());
		}
	}
	const auto ByName = [](const auto* A, const auto* B)
	{
		return A->GetName().GetStd() < B->GetName().GetStd();
	};
	std::ranges::sort(Contents.Classes, ByName);
	std::ranges::sort(Contents.Enums, ByName);
	std::ranges::sort(Contents.Delegates, ByName);
	return Contents;
}

UClass* FindClassByName(std::string_view InCppName)
{
	UECodeGen_Private::FRegistry& Registry = UECodeGen_Private::GetRegistry();
	for (const UECodeGen_Private::FCompiledInInfo* Info : Registry.Infos)
	{
		// Builds those that have not been asked for yet.
		std::for_each(Info->Classes, Info->Classes + Info->NumClasses, [](const auto& Each) { Each.Getter(); });
	}
	const auto Found =
		std::ranges::find(Registry.Classes, InCppName, [](const auto& Each) { return Each->GetCppName(); });
	return Found != Registry.Classes.end() ? Found->get() : nullptr;
}
