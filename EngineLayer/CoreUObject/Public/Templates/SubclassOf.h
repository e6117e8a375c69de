#pragma once

#include "UObject/Class.h"

/** A class that is T or a subclass of it. Reads as null if it holds any other. */
template <class T>
class TSubclassOf
{
public:
	TSubclassOf() = default;
	TSubclassOf(UClass* InClass)
		: Class(InClass)
	{
	}
	template <class OtherType>
	requires std::is_convertible_v<OtherType*, T*> TSubclassOf(const TSubclassOf<OtherType>& Other)
		: Class(*Other)
	{
	}

	UClass* Get() const { return **this; }
	UClass* operator*() const { return Class != nullptr && Class->IsChildOf(T::StaticClass()) ? Class : nullptr; }
	UClass* operator->() const { return **this; }
	operator UClass*() const { return **this; }

private:
	UClass* Class = nullptr;
};
