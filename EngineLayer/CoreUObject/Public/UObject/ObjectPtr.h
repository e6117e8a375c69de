#pragma once

#include "CoreTypes.h"

#include <functional>
#include <type_traits>

/** A reference from one object to another, the size of a pointer. Reflected ones keep their object alive. */
template <class T>
class TObjectPtr
{
public:
	TObjectPtr() = default;
	TObjectPtr(std::nullptr_t) {}
	TObjectPtr(T* InObject)
		: Object(InObject)
	{
	}
	template <class OtherType>
	requires std::is_convertible_v<OtherType*, T*> TObjectPtr(const TObjectPtr<OtherType>& Other)
		: Object(Other.Get())
	{
	}

	T* Get() const { return Object; }
	T* operator->() const { return Object; }
	T& operator*() const { return *Object; }
	operator T*() const { return Object; }

private:
	T* Object = nullptr;
};
