#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"

class UClass;
class UObject;

/** What an object's constructor is told of the object being made. */
class ENGINELAYER_API FObjectInitializer
{
public:
	FObjectInitializer(void* InStorage, UClass* InClass, UObject* InOuter, FName InName, EObjectFlags InFlags);
	~FObjectInitializer();
	FObjectInitializer(const FObjectInitializer&) = delete;
	FObjectInitializer& operator=(const FObjectInitializer&) = delete;

	/** Of the object that is being constructed now; only to be called while one is. */
	static const FObjectInitializer& Get();

	/** The zeroed storage that the object is constructed in. */
	void* GetObj() const { return Storage; }
	UClass* GetClass() const { return Class; }
	UObject* GetOuter() const { return Outer; }
	FName GetName() const { return Name; }
	EObjectFlags GetFlags() const { return Flags; }

private:
	void* Storage;
	UClass* Class;
	UObject* Outer;
	FName Name;
	EObjectFlags Flags;
	/** Constructing an object may construct another. */
	const FObjectInitializer* Previous;
};

/** Makes an object; without a name it gets its class's name and a number. Null for an abstract class. */
ENGINELAYER_API UObject* StaticConstructObject_Internal(UClass* Class, UObject* Outer, FName Name, EObjectFlags Flags);

/** The package for objects that belong to nobody. Never collected. */
ENGINELAYER_API UObject* GetTransientPackage();

template <class T>
T* NewObject(UObject* Outer = GetTransientPackage())
{
	return static_cast<T*>(StaticConstructObject_Internal(T::StaticClass(), Outer, NAME_None, RF_NoFlags));
}

template <class T>
T* NewObject(UObject* Outer, const UClass* Class, FName Name = NAME_None, EObjectFlags Flags = RF_NoFlags)
{
	return static_cast<T*>(StaticConstructObject_Internal(const_cast<UClass*>(Class), Outer, Name, Flags));
}

/** True for an object whose destruction has not begun. */
ENGINELAYER_API bool IsValid(const UObject* Object);

/** Is told the references that an object or a host holds; may empty one. */
class ENGINELAYER_API FReferenceCollector
{
public:
	virtual ~FReferenceCollector() = default;
	virtual void AddReferencedObject(UObject* Object) = 0;
};

/** Something that is no object and keeps objects alive as long as it lives. */
class ENGINELAYER_API FGCObject
{
public:
	FGCObject();
	virtual ~FGCObject();
	FGCObject(const FGCObject&) = delete;
	FGCObject& operator=(const FGCObject&) = delete;

	virtual void AddReferencedObjects(FReferenceCollector& Collector) = 0;
};

/**
 * Marks what can be reached from the roots, begins the destruction of the rest and frees it. Game thread, between
 * frames. KeepFlags: objects with one of these flags count as roots.
 */
ENGINELAYER_API void CollectGarbage(EObjectFlags KeepFlags = RF_NoFlags);

/** Objects alive, class default objects left out: for tests and figures. */
ENGINELAYER_API int32 CountObjects(const UClass* Class);
