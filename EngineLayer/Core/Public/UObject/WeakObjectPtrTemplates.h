#pragma once

#include "CoreTypes.h"

class UObject;

/**
 * The table of all live objects. A slot is reused after its object is gone, with a new serial number, which tells weak
 * pointers that their object is gone.
 */
class ENGINELAYER_API FObjectSlots
{
public:
	static int32 Allocate(UObject* Object);
	static void Free(int32 Index);
	static int32 GetSerial(int32 Index);
	/** Null for an empty slot. */
	static UObject* Get(int32 Index);
	/** The number of slots, in use or free; iterate by index. */
	static int32 Num();
	/** Live objects. */
	static int32 NumAlive();
};

/** Refers to an object without keeping it alive. */
class ENGINELAYER_API FWeakObjectPtr
{
public:
	FWeakObjectPtr() = default;
	FWeakObjectPtr(const UObject* Object);

	/** Null if the object is gone or its destruction has begun. */
	UObject* Get() const;
	bool IsValid() const { return Get() != nullptr; }
	friend bool operator==(const FWeakObjectPtr&, const FWeakObjectPtr&) = default;

private:
	int32 Index = INDEX_NONE;
	int32 Serial = 0;
};

template <class T>
class TWeakObjectPtr : public FWeakObjectPtr
{
public:
	TWeakObjectPtr() = default;
	TWeakObjectPtr(const T* Object)
		: FWeakObjectPtr(Object)
	{
	}

	T* Get() const { return static_cast<T*>(FWeakObjectPtr::Get()); }
	T* operator->() const { return Get(); }
};
