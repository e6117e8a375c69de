#include "GarbageCollector.h"

#include "ObjectStorage.h"
#include "UObject/Class.h"

#include <algorithm>
#include <cstring>

namespace
{

std::vector<FGCObject*>& GetHolders()
{
	static std::vector<FGCObject*> Holders;
	return Holders;
}

/** The objects in a range of references, whatever their static type. */
struct FReferenceRange
{
	UObject* const* Begin;
	UObject* const* End;
};

FReferenceRange ReadArray(const std::byte* Address)
{
	FReferenceRange Range;
	std::memcpy(&Range, Address, sizeof(Range));
	return Range;
}

} // namespace

FGCObject::FGCObject()
{
	GetHolders().push_back(this);
}

FGCObject::~FGCObject()
{
	std::erase(GetHolders(), this);
}

void FGarbageCollector::AddReferencedObject(UObject* Object)
{
	if (Object != nullptr && !Object->bMarked)
	{
		Object->bMarked = true;
		Pending.push_back(Object);
	}
}

void FGarbageCollector::MarkRoots(EObjectFlags KeepFlags)
{
	const int32 Num = FObjectSlots::Num();
	for (int32 Index = 0; Index < Num; ++Index)
	{
		UObject* Object = FObjectSlots::Get(Index);
		// Objects without a class are class records: their library owns them.
		if (Object != nullptr && (Object->bRooted || Object->ClassPrivate == nullptr ||
								  Object->HasAnyFlags(RF_ClassDefaultObject) || Object->HasAnyFlags(KeepFlags)))
		{
			AddReferencedObject(Object);
		}
	}
	for (FGCObject* Holder : GetHolders())
	{
		Holder->AddReferencedObjects(*this);
	}
}

void FGarbageCollector::Follow(UObject& Object)
{
	AddReferencedObject(Object.OuterPrivate);
	if (Object.ClassPrivate == nullptr)
	{
		return;
	}
	const std::byte* Start = reinterpret_cast<const std::byte*>(&Object);
	for (const UClass::FReferenceToken& Token : Object.ClassPrivate->References)
	{
		if (Token.bArray)
		{
			const FReferenceRange Range = ReadArray(Start + Token.Offset);
			std::for_each(Range.Begin, Range.End, [this](UObject* Each) { AddReferencedObject(Each); });
			continue;
		}
		UObject* Referenced = nullptr;
		std::memcpy(&Referenced, Start + Token.Offset, sizeof(Referenced));
		AddReferencedObject(Referenced);
	}
	Object.VisitReferences(*this);
}

void FGarbageCollector::FollowReferences()
{
	while (!Pending.empty())
	{
		UObject* Object = Pending.back();
		Pending.pop_back();
		Follow(*Object);
	}
}

std::vector<UObject*> FGarbageCollector::TakeUnreached()
{
	std::vector<UObject*> Unreached;
	const int32 Num = FObjectSlots::Num();
	for (int32 Index = 0; Index < Num; ++Index)
	{
		UObject* Object = FObjectSlots::Get(Index);
		if (Object != nullptr && !std::exchange(Object->bMarked, false))
		{
			Unreached.push_back(Object);
		}
	}
	return Unreached;
}

void FGarbageCollector::Free(UObject* Object)
{
	const std::size_t Size = Object->GetClass()->GetPropertiesSize();
	Object->~UObject();
	FObjectStorage::Free(Object, Size);
}

void FGarbageCollector::Collect(EObjectFlags KeepFlags)
{
	MarkRoots(KeepFlags);
	FollowReferences();
	const std::vector<UObject*> Unreached = TakeUnreached();
	// Every destruction begins before the first object is freed, because an object may still look at another one's
	// memory.
	for (UObject* Object : Unreached)
	{
		Object->ConditionalBeginDestroy();
	}
	for (UObject* Object : Unreached)
	{
		Free(Object);
	}
}

void CollectGarbage(EObjectFlags KeepFlags)
{
	FGarbageCollector().Collect(KeepFlags);
}

int32 CountObjects(const UClass* Class)
{
	int32 Count = 0;
	const int32 Num = FObjectSlots::Num();
	for (int32 Index = 0; Index < Num; ++Index)
	{
		const UObject* Object = FObjectSlots::Get(Index);
		Count += Object != nullptr && Object->IsA(Class) && !Object->HasAnyFlags(RF_ClassDefaultObject) ? 1 : 0;
	}
	return Count;
}
