#pragma once

#include "UObject/Class.h"

/** A member that refers to an object. */
class ENGINELAYER_API FObjectProperty : public FProperty
{
public:
	explicit FObjectProperty(const UECodeGen_Private::FPropertyParams& InParams)
		: FProperty(InParams)
	{
	}

	/** Container: the object with the member. */
	UObject* GetObjectPropertyValue_InContainer(const void* Container) const
	{
		return GetObjectValue(static_cast<const UObject*>(Container));
	}
	void SetObjectPropertyValue_InContainer(void* Container, UObject* Value) const
	{
		SetObjectValue(static_cast<UObject*>(Container), Value);
	}
};

/** A member that refers to a class. */
class ENGINELAYER_API FClassProperty : public FObjectProperty
{
public:
	using FObjectProperty::FObjectProperty;
};

/** The reflected member of that name and kind in the class or its bases; null if there is none. */
template <class T>
T* FindFProperty(const UClass* Owner, FName Name)
{
	return dynamic_cast<T*>(Owner->FindPropertyByName(Name));
}
