#include "ModuleListing.h"

#include "Files/FileText.h"
#include "Modules/ModuleInterface.h"
#include "UObject/Class.h"
#include "UObject/GeneratedCppIncludes.h"

namespace Flitmark
{

namespace
{

using UECodeGen_Private::EPropertyGenKind;

struct FFlagName
{
	uint64 Flag;
	const char* Name;
};

constexpr FFlagName ClassFlagNames[] = {
	{CLASS_Native, "Native"},
	{CLASS_MatchedSerializers, "MatchedSerializers"},
	{CLASS_RequiredAPI, "RequiredAPI"},
	{CLASS_EditInlineNew, "EditInlineNew"},
	{CLASS_DefaultToInstanced, "DefaultToInstanced"},
	{CLASS_HasInstancedReference, "HasInstancedReference"},
};

constexpr FFlagName PropertyFlagNames[] = {
	{CPF_Edit, "Edit"},
	{CPF_DisableEditOnInstance, "DisableEditOnInstance"},
	{CPF_BlueprintVisible, "BlueprintVisible"},
	{CPF_BlueprintReadOnly, "BlueprintReadOnly"},
	{CPF_BlueprintAssignable, "BlueprintAssignable"},
	{CPF_Transient, "Transient"},
	{CPF_InstancedReference, "InstancedReference"},
	{CPF_TObjectPtr, "TObjectPtr"},
	{CPF_ConstParm, "ConstParm"},
	{CPF_OutParm, "OutParm"},
	{CPF_ReferenceParm, "ReferenceParm"},
};

constexpr FFlagName FunctionFlagNames[] = {
	{FUNC_Final, "Final"},
	{FUNC_Native, "Native"},
	{FUNC_Private, "Private"},
	{FUNC_Protected, "Protected"},
	{FUNC_Public, "Public"},
	{FUNC_MulticastDelegate, "MulticastDelegate"},
	{FUNC_Delegate, "Delegate"},
	{FUNC_HasOutParms, "HasOutParms"},
	{FUNC_BlueprintCallable, "BlueprintCallable"},
	{FUNC_BlueprintPure, "BlueprintPure"},
	{FUNC_Const, "Const"},
};

template <std::size_t Count>
std::vector<std::string> NameFlags(uint64 Flags, const FFlagName (&Names)[Count])
{
	std::vector<std::string> Result;
	for (const FFlagName& Each : Names)
	{
		if ((Flags & Each.Flag) != 0)
		{
			Result.emplace_back(Each.Name);
		}
	}
	return Result;
}

std::string NameType(const FProperty& Property)
{
	switch (Property.GetKind())
	{
	case EPropertyGenKind::Int32:
		return "int32";
	case EPropertyGenKind::Int64:
		return "int64";
	case EPropertyGenKind::Float:
		return "float";
	case EPropertyGenKind::Double:
		return "double";
	case EPropertyGenKind::Bool:
		return "bool";
	case EPropertyGenKind::String:
		return "FString";
	case EPropertyGenKind::Text:
		return "FText";
	case EPropertyGenKind::Name:
		return "FName";
	case EPropertyGenKind::Enum:
	case EPropertyGenKind::Struct:
	case EPropertyGenKind::MulticastDelegate:
		return ToUtf8(Property.GetTypeName());
	case EPropertyGenKind::Object:
	{
		const std::string Class = Property.GetReferencedClass()->GetCppName();
		return Property.HasAnyFlags(CPF_TObjectPtr) ? "TObjectPtr<" + Class + ">" : Class + "*";
	}
	case EPropertyGenKind::Class:
		return "TSubclassOf<" + Property.GetReferencedClass()->GetCppName() + ">";
	case EPropertyGenKind::Array:
		return "TArray<" + NameType(*Property.GetInner()) + ">";
	}
	return std::string();
}

std::string NameKind(const FProperty& Property)
{
	if (Property.GetMetaData().Find("BindWidget") != nullptr)
	{
		return "bound widget";
	}
	if (Property.GetMetaData().Find("BindWidgetOptional") != nullptr)
	{
		return "bound widget, optional";
	}
	if (Property.GetKind() == EPropertyGenKind::MulticastDelegate)
	{
		return "event";
	}
	if (!Property.HasAnyFlags(CPF_Edit))
	{
		return "reflected only";
	}
	return Property.HasAnyFlags(CPF_DisableEditOnInstance) ? "editable on defaults only" : "editable anywhere";
}

FModuleListing::FPropertyEntry ListProperty(const FProperty& Property)
{
	FModuleListing::FPropertyEntry Entry;
	Entry.Name = ToUtf8(Property.GetName());
	Entry.Type = NameType(Property);
	Entry.Flags = NameFlags(Property.GetFlags(), PropertyFlagNames);
	Entry.MetaData = Property.GetMetaData().GetAll();
	Entry.bConstReference = Entry.MetaData.contains("NativeConst");
	return Entry;
}

FModuleListing::FFunctionEntry ListFunction(const UFunction& Function)
{
	FModuleListing::FFunctionEntry Entry;
	Entry.Name = ToUtf8(Function.GetName());
	Entry.Flags = NameFlags(Function.GetFunctionFlags(), FunctionFlagNames);
	Entry.MetaData = Function.GetMetaData().GetAll();
	if (const FProperty* Result = Function.GetReturnProperty())
	{
		Entry.Result = NameType(*Result);
	}
	for (const FProperty& Parameter : Function.GetParameters())
	{
		Entry.Parameters.push_back(ListProperty(Parameter));
	}
	return Entry;
}

FModuleListing::FClassEntry ListClass(UClass& Class)
{
	FModuleListing::FClassEntry Entry;
	Entry.Name = Class.GetCppName();
	Entry.Base = Class.GetSuperClass() != nullptr ? Class.GetSuperClass()->GetCppName() : std::string();
	Entry.Flags = NameFlags(Class.GetClassFlags(), ClassFlagNames);
	Entry.MetaData = Class.GetMetaData().GetAll();
	for (const std::unique_ptr<FProperty>& Property : Class.GetOwnProperties())
	{
		FModuleListing::FPropertyEntry& Listed = Entry.Properties.emplace_back(ListProperty(*Property));
		Listed.Kind = NameKind(*Property);
		if (Property->HasAnyFlags(CPF_Edit) && Property->GetKind() == EPropertyGenKind::Int32)
		{
			Listed.Default = *Property->ContainerPtrToValuePtr<int32>(Class.GetDefaultObject());
		}
	}
	for (const std::unique_ptr<UFunction>& Function : Class.GetOwnFunctions())
	{
		Entry.Functions.push_back(ListFunction(*Function));
	}
	return Entry;
}

FModuleListing::FEnumEntry ListEnum(const UEnum& Enum)
{
	FModuleListing::FEnumEntry Entry;
	Entry.Name = ToUtf8(Enum.GetName());
	Entry.UnderlyingType = Enum.GetUnderlyingType();
	Entry.MetaData = Enum.GetMetaData().GetAll();
	for (int32 Index = 0; Index < Enum.NumEnums(); ++Index)
	{
		Entry.Enumerators.emplace_back(ToUtf8(Enum.GetNameByIndex(Index).ToString()), Enum.GetValueByIndex(Index));
	}
	return Entry;
}

} // namespace

FModuleListing FModuleListing::Make(const std::string& InModule, IModuleInterface& InInterface)
{
	FModuleListing Listing;
	Listing.Module = InModule;
	Listing.Package = "/Script/" + InModule;
	Listing.bSupportsDynamicReloading = InInterface.SupportsDynamicReloading();
	Listing.bSupportsAutomaticShutdown = InInterface.SupportsAutomaticShutdown();
	Listing.bGameModule = InInterface.IsGameModule();
	const FPackageContents Contents = FindPackageContents(Listing.Package);
	for (UClass* Class : Contents.Classes)
	{
		Listing.Classes.push_back(ListClass(*Class));
	}
	for (const UEnum* Enum : Contents.Enums)
	{
		Listing.Enums.push_back(ListEnum(*Enum));
	}
	for (const UFunction* Delegate : Contents.Delegates)
	{
		Listing.Delegates.push_back(ListFunction(*Delegate));
	}
	return Listing;
}

} // namespace Flitmark
