#include "UObject/Class.h"

#include "Containers/StringConv.h"
#include "GarbageCollector.h"
#include "UObject/GeneratedCppIncludes.h"
#include "UObject/UnrealType.h"

#include <algorithm>
#include <cstring>

using UECodeGen_Private::EPropertyGenKind;

namespace
{

FString FromUtf8(std::string_view Text)
{
	const FUTF8ToTCHAR Converted(Text.data(), static_cast<int32>(Text.size()));
	return FString(FStringView(Converted.Get(), static_cast<std::size_t>(Converted.Length())));
}

FName NameFromUtf8(std::string_view Text)
{
	return FName(FStringView(FromUtf8(Text)));
}

/** Flags of a new class record: its own and those inherited from its base. */
uint32 WithInherited(uint32 Flags, const UClass* Super)
{
	return Flags | (Super != nullptr ? Super->GetClassFlags() & CLASS_Inherit : 0u);
}

FObjectInitializer RecordInitializer(UClass* Storage, FName Name)
{
	return FObjectInitializer(Storage, nullptr, nullptr, Name, RF_Public);
}

template <class T>
void CopyAt(UObject* To, const UObject* From, const FProperty& Property)
{
	*Property.ContainerPtrToValuePtr<T>(To) = *Property.ContainerPtrToValuePtr<T>(From);
}

std::unique_ptr<FProperty> MakeProperty(const UECodeGen_Private::FPropertyParams& Params)
{
	switch (Params.Kind)
	{
	case EPropertyGenKind::Object:
		return std::make_unique<FObjectProperty>(Params);
	case EPropertyGenKind::Class:
		return std::make_unique<FClassProperty>(Params);
	default:
		return std::make_unique<FProperty>(Params);
	}
}

} // namespace

FMetaData::FMetaData(const UECodeGen_Private::FMetaDataList& InList)
{
	for (int32 Index = 0; Index < InList.Num; ++Index)
	{
		Values.emplace(InList.Pairs[Index].Name, FromUtf8(InList.Pairs[Index].Value));
	}
}

const FString* FMetaData::Find(std::string_view InKey) const
{
	const auto Found = Values.find(InKey);
	return Found == Values.end() ? nullptr : &Found->second;
}

FProperty::FProperty(const UECodeGen_Private::FPropertyParams& InParams)
	: Name(NameFromUtf8(InParams.Name))
	, Kind(InParams.Kind)
	, Flags(InParams.Flags)
	, Offset(InParams.Offset)
	, Params(InParams)
	, Inner(InParams.Inner != nullptr ? std::make_unique<FProperty>(*InParams.Inner) : nullptr)
	, MetaData(InParams.MetaData)
{
}

UClass* FProperty::GetReferencedClass() const
{
	return Params.ClassGetter != nullptr ? Params.ClassGetter() : nullptr;
}

FString FProperty::GetTypeName() const
{
	if (Params.EnumGetter != nullptr)
	{
		return Params.EnumGetter()->GetName();
	}
	return Params.TypeName != nullptr ? FromUtf8(Params.TypeName) : FString();
}

void FProperty::CopyValue(UObject* To, const UObject* From) const
{
	switch (Kind)
	{
	case EPropertyGenKind::Int32:
		return CopyAt<int32>(To, From, *this);
	case EPropertyGenKind::Int64:
		return CopyAt<int64>(To, From, *this);
	case EPropertyGenKind::Float:
		return CopyAt<float>(To, From, *this);
	case EPropertyGenKind::Double:
		return CopyAt<double>(To, From, *this);
	case EPropertyGenKind::Bool:
		return CopyAt<bool>(To, From, *this);
	case EPropertyGenKind::String:
		return CopyAt<FString>(To, From, *this);
	case EPropertyGenKind::Text:
		return CopyAt<FText>(To, From, *this);
	case EPropertyGenKind::Name:
		return CopyAt<FName>(To, From, *this);
	case EPropertyGenKind::Object:
	case EPropertyGenKind::Class:
		std::memcpy(ContainerPtrToValuePtr<void>(To), ContainerPtrToValuePtr<void>(From), sizeof(void*));
		return;
	case EPropertyGenKind::Enum:
	case EPropertyGenKind::Struct:
	case EPropertyGenKind::MulticastDelegate:
	case EPropertyGenKind::Array:
		// No class has an editable one, so nothing asks for a copy.
		return;
	}
}

UObject* FProperty::GetObjectValue(const UObject* Object) const
{
	UObject* Value = nullptr;
	std::memcpy(&Value, ContainerPtrToValuePtr<std::byte>(Object), sizeof(Value));
	return Value;
}

void FProperty::SetObjectValue(UObject* Object, UObject* Value) const
{
	std::memcpy(ContainerPtrToValuePtr<std::byte>(Object), &Value, sizeof(Value));
}

std::vector<UObject*> FProperty::GetObjectArray(const UObject* Object) const
{
	UObject* const* Bounds[2];
	std::memcpy(Bounds, ContainerPtrToValuePtr<std::byte>(Object), sizeof(Bounds));
	return std::vector<UObject*>(Bounds[0], Bounds[1]);
}

UFunction::UFunction(const UECodeGen_Private::FFunctionParams& InParams)
	: Name(NameFromUtf8(InParams.Name))
	, Flags(InParams.Flags)
	, Native(InParams.Native)
	, MetaData(InParams.MetaData)
{
	for (int32 Index = 0; Index < InParams.NumParameters; ++Index)
	{
		const UECodeGen_Private::FPropertyParams& Each = InParams.Parameters[Index];
		if ((Each.Flags & CPF_ReturnParm) != 0)
		{
			Result = std::make_unique<FProperty>(Each);
		}
		else
		{
			Parameters.emplace_back(Each);
		}
	}
}

void UFunction::Invoke(UObject* Context, const void* const* InParameters, void* OutResult) const
{
	if (Native != nullptr)
	{
		FFrame Frame(InParameters);
		Native(Context, Frame, OutResult);
	}
}

UClass::UClass(const UECodeGen_Private::FClassParams& InParams, UClass* InSuper)
	: UObject(RecordInitializer(this, NameFromUtf8(InParams.Name)))
	, Super(InSuper)
	, CppName(InParams.CppName)
	, ClassFlags(WithInherited(InParams.Flags, InSuper))
	, Size(InParams.Size)
	, Alignment(InParams.Alignment)
	, Construct(InParams.Construct)
	, MetaData(InParams.MetaData)
{
	for (int32 Index = 0; Index < InParams.NumProperties; ++Index)
	{
		Properties.push_back(MakeProperty(InParams.Properties[Index]));
	}
	for (int32 Index = 0; Index < InParams.NumFunctions; ++Index)
	{
		Functions.push_back(std::make_unique<UFunction>(InParams.Functions[Index]));
	}
	AddReferenceTokens();
}

UClass::UClass(FName InName, UClass* InSuper)
	: UObject(RecordInitializer(this, InName))
	, Super(InSuper)
	, CppName(InSuper->CppName)
	, ClassFlags(InSuper->ClassFlags &
				 ~static_cast<uint32>(CLASS_Native | CLASS_MatchedSerializers | CLASS_RequiredAPI))
	, Size(InSuper->Size)
	, Alignment(InSuper->Alignment)
	, Construct(InSuper->Construct)
{
	AddReferenceTokens();
}

UClass::~UClass()
{
	if (DefaultObject != nullptr)
	{
		FGarbageCollector::Free(DefaultObject);
	}
}

UClass* UClass::StaticClass()
{
	static UClass* Class = nullptr;
	static const UECodeGen_Private::FClassParams Params{"Class",
														"UClass",
														&UObject::StaticClass,
														CLASS_Native | CLASS_Abstract,
														sizeof(UClass),
														alignof(UClass),
														nullptr,
														nullptr,
														0,
														nullptr,
														0,
														{}};
	return UECodeGen_Private::ConstructUClass(Class, Params);
}

void UClass::AddReferenceTokens()
{
	if (Super != nullptr)
	{
		References = Super->References;
	}
	for (const std::unique_ptr<FProperty>& Property : Properties)
	{
		const bool bArray = Property->GetKind() == EPropertyGenKind::Array;
		if (Property->GetKind() == EPropertyGenKind::Object ||
			(bArray && Property->GetInner()->GetKind() == EPropertyGenKind::Object))
		{
			References.push_back({Property->GetOffset(), bArray});
		}
	}
}

FProperty* UClass::FindPropertyByName(FName InName) const
{
	for (const UClass* Each = this; Each != nullptr; Each = Each->Super)
	{
		const auto Found =
			std::ranges::find(Each->Properties, InName, [](const auto& Property) { return Property->GetFName(); });
		if (Found != Each->Properties.end())
		{
			return Found->get();
		}
	}
	return nullptr;
}

UFunction* UClass::FindFunctionByName(FName InName) const
{
	for (const UClass* Each = this; Each != nullptr; Each = Each->Super)
	{
		for (const std::unique_ptr<UFunction>& Function : Each->Functions)
		{
			if (Function->GetFName() == InName)
			{
				return Function.get();
			}
		}
	}
	return nullptr;
}

UObject* UClass::GetDefaultObject()
{
	if (DefaultObject == nullptr && !HasAnyClassFlags(CLASS_Abstract))
	{
		FString DefaultName(TEXT("Default__"));
		DefaultName += FStringView(GetName());
		DefaultObject =
			StaticConstructObject_Internal(this, nullptr, FName(FStringView(DefaultName)), RF_ClassDefaultObject);
	}
	return DefaultObject;
}

void UClass::PostConstruct(UObject&)
{
}

UEnum::UEnum(const UECodeGen_Private::FEnumParams& InParams)
	: Name(FromUtf8(InParams.Name))
	, UnderlyingType(InParams.UnderlyingType)
	, bScoped(InParams.bScoped)
	, MetaData(InParams.MetaData)
{
	for (int32 Index = 0; Index < InParams.NumEnumerators; ++Index)
	{
		Names.emplace_back(NameFromUtf8(InParams.Enumerators[Index].Name), InParams.Enumerators[Index].Value);
	}
}
