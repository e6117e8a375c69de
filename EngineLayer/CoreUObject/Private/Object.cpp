#include "ObjectStorage.h"
#include "UObject/Class.h"
#include "UObject/GeneratedCppIncludes.h"
#include "UObject/Object.h"

#include <new>

namespace
{

thread_local const FObjectInitializer* CurrentInitializer = nullptr;

} // namespace

FObjectInitializer::FObjectInitializer(void* InStorage, UClass* InClass, UObject* InOuter, FName InName,
									   EObjectFlags InFlags)
	: Storage(InStorage)
	, Class(InClass)
	, Outer(InOuter)
	, Name(InName)
	, Flags(InFlags)
	, Previous(CurrentInitializer)
{
	CurrentInitializer = this;
}

FObjectInitializer::~FObjectInitializer()
{
	CurrentInitializer = Previous;
}

const FObjectInitializer& FObjectInitializer::Get()
{
	return *CurrentInitializer;
}

UObject::UObject()
	: UObject(FObjectInitializer::Get())
{
}

UObject::UObject(const FObjectInitializer& ObjectInitializer)
	: ClassPrivate(ObjectInitializer.GetClass())
	, OuterPrivate(ObjectInitializer.GetOuter())
	, NamePrivate(ObjectInitializer.GetName())
	, ObjectFlags(ObjectInitializer.GetFlags())
	, SlotIndex(FObjectSlots::Allocate(this))
{
}

UObject::~UObject()
{
	FObjectSlots::Free(SlotIndex);
}

UClass* UObject::StaticClass()
{
	static UClass* Class = nullptr;
	static const UECodeGen_Private::FClassParams Params{"Object",
														"UObject",
														nullptr,
														CLASS_Native,
														sizeof(UObject),
														alignof(UObject),
														&InternalConstructor<UObject>,
														nullptr,
														0,
														nullptr,
														0,
														{}};
	return UECodeGen_Private::ConstructUClass(Class, Params);
}

bool UObject::IsA(const UClass* SomeBase) const
{
	return ClassPrivate != nullptr && ClassPrivate->IsChildOf(SomeBase);
}

UWorld* UObject::GetWorld() const
{
	return OuterPrivate != nullptr ? OuterPrivate->GetWorld() : nullptr;
}

void UObject::BeginDestroy()
{
}

bool UObject::ConditionalBeginDestroy()
{
	if (HasAnyFlags(RF_BeginDestroyed))
	{
		return false;
	}
	ObjectFlags |= RF_BeginDestroyed;
	BeginDestroy();
	return true;
}

UFunction* UObject::FindFunction(FName InName) const
{
	return ClassPrivate != nullptr ? ClassPrivate->FindFunctionByName(InName) : nullptr;
}

void UObject::VisitReferences(FReferenceCollector&)
{
}

UObject* StaticConstructObject_Internal(UClass* Class, UObject* Outer, FName Name, EObjectFlags Flags)
{
	if (Class == nullptr || Class->HasAnyClassFlags(CLASS_Abstract))
	{
		return nullptr;
	}
	void* Storage = FObjectStorage::Allocate(Class->Size);
	const FName ObjectName = Name.IsNone() ? FName(Class->GetFName(), Class->NextObjectNumber++) : Name;
	{
		const FObjectInitializer Initializer(Storage, Class, Outer, ObjectName, Flags);
		Class->Construct(Initializer);
	}
	// Single inheritance only: the base is at the start of the object.
	UObject* Object = static_cast<UObject*>(Storage);
	if ((Flags & RF_ClassDefaultObject) == 0)
	{
		Class->PostConstruct(*Object);
	}
	return Object;
}

UObject* GetTransientPackage()
{
	static UObject* const Package = []
	{
		UObject* Made = StaticConstructObject_Internal(UObject::StaticClass(), nullptr,
													   FName(TEXT("/Engine/Transient")), RF_Public);
		Made->AddToRoot();
		return Made;
	}();
	return Package;
}

bool IsValid(const UObject* Object)
{
	return Object != nullptr && !Object->HasAnyFlags(RF_BeginDestroyed);
}

FWeakObjectPtr::FWeakObjectPtr(const UObject* Object)
{
	if (Object != nullptr)
	{
		Index = Object->GetUniqueID();
		Serial = FObjectSlots::GetSerial(Index);
	}
}

UObject* FWeakObjectPtr::Get() const
{
	if (Index == INDEX_NONE || FObjectSlots::GetSerial(Index) != Serial)
	{
		return nullptr;
	}
	UObject* Object = FObjectSlots::Get(Index);
	return ::IsValid(Object) ? Object : nullptr;
}
