#pragma once

#include "CoreTypes.h"
#include "UObject/WeakObjectPtrTemplates.h"

#include <cstring>
#include <functional>
#include <utility>

/** A callback without parameters, bound to a weakly held object or to none. */
class FSimpleDelegate
{
public:
	FSimpleDelegate() = default;

	template <class UserClass, class MethodClass>
	static FSimpleDelegate CreateUObject(UserClass* Object, void (MethodClass::*Method)())
	{
		static_assert(sizeof(Method) <= sizeof(FSimpleDelegate::Method));
		FSimpleDelegate Delegate;
		Delegate.Call = &CallMethod<MethodClass>;
		Delegate.Object = static_cast<MethodClass*>(Object);
		std::memcpy(Delegate.Method, &Method, sizeof(Method));
		Delegate.Owner = FWeakObjectPtr(Object);
		Delegate.OwnerAddress = Object;
		return Delegate;
	}
	/** The function is no longer called once the object is gone. */
	template <class UserClass, class FunctorType>
	static FSimpleDelegate CreateWeakLambda(UserClass* Object, FunctorType&& Functor)
	{
		FSimpleDelegate Delegate;
		Delegate.Function = std::forward<FunctorType>(Functor);
		Delegate.Owner = FWeakObjectPtr(Object);
		Delegate.OwnerAddress = Object;
		return Delegate;
	}

	bool IsBound() const { return (Function || Call != nullptr) && (OwnerAddress == nullptr || Owner.IsValid()); }
	/** The object it is bound to, for comparison only; null if there is none. */
	const void* GetOwnerAddress() const { return OwnerAddress; }
	bool ExecuteIfBound() const
	{
		if (!IsBound())
		{
			return false;
		}
		Call != nullptr ? Call(*this) : Function();
		return true;
	}

private:
	template <class MethodClass>
	static void CallMethod(const FSimpleDelegate& Delegate)
	{
		void (MethodClass::*Called)() = nullptr;
		std::memcpy(&Called, Delegate.Method, sizeof(Called));
		(static_cast<MethodClass*>(Delegate.Object)->*Called)();
	}

	/** For a method. Destroying it must not need the subscriber's code, whose module may be unloaded by then. */
	void (*Call)(const FSimpleDelegate&) = nullptr;
	void* Object = nullptr;
	alignas(void*) std::byte Method[2 * sizeof(void*)] = {};
	/** For a functor. */
	std::function<void()> Function;
	FWeakObjectPtr Owner;
	/** Only compared, never dereferenced. */
	const void* OwnerAddress = nullptr;
};
