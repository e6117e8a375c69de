#pragma once

#include "CoreMinimal.h"
#include "UObject/ObjectMacros.h"
#include "UObject/ObjectPtr.h"
#include "UObject/UObjectGlobals.h"

class UFunction;
class UWorld;

/** Declares what one of the layer's own classes needs to be registered; its .cpp has IMPLEMENT_LAYER_CLASS. */
#define DECLARE_LAYER_CLASS(TClass, TSuper)                                                                            \
public:                                                                                                                \
	typedef TSuper Super;                                                                                              \
	typedef TClass ThisClass;                                                                                          \
	static UClass* StaticClass();                                                                                      \
	static void __DefaultConstructor(const FObjectInitializer& X)                                                      \
	{                                                                                                                  \
		new (X.GetObj()) TClass(X);                                                                                    \
	}                                                                                                                  \
                                                                                                                       \
private:

/** The base of everything that the registry knows and the garbage collector collects. */
class ENGINELAYER_API UObject
{
public:
	/** For classes that write a constructor without an initializer. */
	UObject();
	explicit UObject(const FObjectInitializer& ObjectInitializer);
	virtual ~UObject();
	UObject(const UObject&) = delete;
	UObject& operator=(const UObject&) = delete;

	typedef UObject ThisClass;
	static UClass* StaticClass();
	static void __DefaultConstructor(const FObjectInitializer& X) { new (X.GetObj()) UObject(X); }

	UClass* GetClass() const { return ClassPrivate; }
	UObject* GetOuter() const { return OuterPrivate; }
	FName GetFName() const { return NamePrivate; }
	FString GetName() const { return NamePrivate.ToString(); }
	bool HasAnyFlags(EObjectFlags InFlags) const { return (ObjectFlags & InFlags) != 0; }
	bool IsA(const UClass* SomeBase) const;
	template <class T>
	bool IsA() const
	{
		return IsA(T::StaticClass());
	}

	/** The world that the object belongs to through its outers; null if there is none. */
	virtual UWorld* GetWorld() const;

	/** Called once, before the object is freed. An override calls the base's last. */
	virtual void BeginDestroy();
	/** Begins the destruction unless it has begun already; true if it did so. */
	bool ConditionalBeginDestroy();

	void AddToRoot() { bRooted = true; }
	void RemoveFromRoot() { bRooted = false; }

	/** The reflected function of that name in the object's class or its bases; null if there is none. */
	UFunction* FindFunction(FName InName) const;

	/** References beyond the reflected ones; for the layer's own classes, whose headers have no reflection macros. */
	virtual void VisitReferences(FReferenceCollector& Collector);

	/** Index in the table of objects. */
	int32 GetUniqueID() const { return SlotIndex; }

private:
	friend class FGarbageCollector;
	friend ENGINELAYER_API UObject* StaticConstructObject_Internal(UClass*, UObject*, FName, EObjectFlags);

	// Named like the engine's, so that a derived class's names shadow exactly what they would shadow there.
	UClass* ClassPrivate;
	UObject* OuterPrivate;
	FName NamePrivate;
	uint32 ObjectFlags;
	int32 SlotIndex;
	bool bRooted = false;
	/** Reached in the collection under way. */
	bool bMarked = false;
};

/** The object as a T if it is one, else null. */
template <class T>
T* Cast(UObject* Object)
{
	return Object != nullptr && Object->IsA(T::StaticClass()) ? static_cast<T*>(Object) : nullptr;
}
template <class T>
const T* Cast(const UObject* Object)
{
	return Cast<T>(const_cast<UObject*>(Object));
}
template <class T, class FromType>
T* Cast(const TObjectPtr<FromType>& Object)
{
	return Cast<T>(static_cast<UObject*>(Object.Get()));
}

/** The object as a T; the caller knows that it is one. */
template <class T>
T* CastChecked(UObject* Object)
{
	return static_cast<T*>(Object);
}
