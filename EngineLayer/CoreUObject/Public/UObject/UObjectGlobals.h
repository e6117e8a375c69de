#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"

class UClass;
class UObject;

/** What an object's constructor is told about the object being made. */
class ENGINELAYER_API FObjectInitializer
{
public:
	FObjectInitializer(void* InStorage, UClass* InClass, UObject* InOuter, FName InName, EObjectFlags InFlags);
	~FObjectInitializer();
	FObjectInitializer(const FObjectInitializer&) = delete;
	FObjectInitializer& operator=(const FObjectInitializer&) = delete;

	/** The one of the object under construction; call it only while there is one. */
	static const FObjectInitializer& Get();

	/** The zeroed storage in which the object is constructed. */
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

/** Makes an object; without a name it is named after its class, with a number. Null for an abstract class. */
ENGINELAYER_API UObject* StaticConstructObject_Internal(UClass* Class, UObject* Outer, FName Name, EObjectFlags Flags);

/** The package for objects without an owner. Never collected. */
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

/** Receives the references that an object or a host holds; may clear them. */
class ENGINELAYER_API FReferenceCollector
{
public:
	virtual ~FReferenceCollector() = default;
	virtual void AddReferencedObject(UObject* Object) = 0;
};

/** Not an object itself; keeps objects alive for as long as it lives. */
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
 * Marks what can be reached from the roots, then destroys and frees the rest. Game thread, between frames. KeepFlags:
 * objects with any of these flags count as roots.
 */
ENGINELAYER_API void CollectGarbage(EObjectFlags KeepFlags = RF_NoFlags);

/** Live objects, not counting class default objects; for tests and statistics. */
ENGINELAYER_API int32 CountObjects(const UClass* Class);
