#pragma once

#include "UObject/Class.h"
#include "UObject/Object.h"

#include <algorithm>
#include <memory>
#include <vector>

/**
 * Subscribers identified by object and function name, called in the order in which they subscribed. The function is
 * looked up in the object's class on each call; an object that is gone is skipped.
 */
class FMulticastScriptDelegate
{
public:
	void AddUnique(UObject* Object, FName FunctionName)
	{
		if (!Contains(Object, FunctionName))
		{
			Add(Object, FunctionName);
		}
	}
	void Add(UObject* Object, FName FunctionName) { Bindings.push_back({FWeakObjectPtr(Object), FunctionName}); }
	bool Contains(const UObject* Object, FName FunctionName) const
	{
		return std::ranges::find(Bindings, FBinding{FWeakObjectPtr(Object), FunctionName}) != Bindings.end();
	}
	void Remove(const UObject* Object, FName FunctionName)
	{
		std::erase(Bindings, FBinding{FWeakObjectPtr(Object), FunctionName});
	}
	/** Removes all of an object's subscriptions. */
	void RemoveAll(const UObject* Object)
	{
		std::erase_if(Bindings, [Object](const FBinding& Each) { return Each.Object == FWeakObjectPtr(Object); });
	}
	bool IsBound() const { return !Bindings.empty(); }

protected:
	void ProcessMulticastDelegate(const void* const* Parameters) const
	{
		// A copy: a subscriber may subscribe or unsubscribe another.
		const std::vector<FBinding> Called = Bindings;
		for (const FBinding& Binding : Called)
		{
			UObject* Object = Binding.Object.Get();
			const UFunction* Function = Object != nullptr ? Object->FindFunction(Binding.FunctionName) : nullptr;
			if (Function != nullptr)
			{
				Function->Invoke(Object, Parameters);
			}
		}
	}

private:
	struct FBinding
	{
		FWeakObjectPtr Object;
		FName FunctionName;
		friend bool operator==(const FBinding&, const FBinding&) = default;
	};

	std::vector<FBinding> Bindings;
};

template <class... ParameterTypes>
class TDynamicMulticastDelegate : public FMulticastScriptDelegate
{
public:
	void Broadcast(ParameterTypes... Parameters) const
	{
		const void* Values[sizeof...(ParameterTypes) + 1] = {static_cast<const void*>(std::addressof(Parameters))...,
															 nullptr};
		ProcessMulticastDelegate(Values);
	}

	/** Behind AddDynamic: takes the method only so that a wrong signature does not compile. */
	template <class UserClass>
	void InternalAddDynamic(UserClass* Object, void (UserClass::*)(ParameterTypes...), const TCHAR* MethodText)
	{
		Add(Object, GetFunctionName(MethodText));
	}
	template <class UserClass>
	void InternalAddUniqueDynamic(UserClass* Object, void (UserClass::*)(ParameterTypes...), const TCHAR* MethodText)
	{
		AddUnique(Object, GetFunctionName(MethodText));
	}
	template <class UserClass>
	void InternalRemoveDynamic(UserClass* Object, void (UserClass::*)(ParameterTypes...), const TCHAR* MethodText)
	{
		Remove(Object, GetFunctionName(MethodText));
	}

private:
	/** "&UClass::Method" without what precedes the method's name. */
	static FName GetFunctionName(FStringView MethodText)
	{
		return FName(FStringView(MethodText.substr(MethodText.rfind(u':') + 1)));
	}
};

#define AddDynamic(UserObject, Method) InternalAddDynamic(UserObject, Method, TEXT(#Method))
#define AddUniqueDynamic(UserObject, Method) InternalAddUniqueDynamic(UserObject, Method, TEXT(#Method))
#define RemoveDynamic(UserObject, Method) InternalRemoveDynamic(UserObject, Method, TEXT(#Method))

#define DECLARE_DYNAMIC_MULTICAST_DELEGATE(DelegateName)                                                               \
	class DelegateName : public TDynamicMulticastDelegate<>                                                            \
	{                                                                                                                  \
	}
#define DECLARE_DYNAMIC_MULTICAST_DELEGATE_OneParam(DelegateName, T1, N1)                                              \
	class DelegateName : public TDynamicMulticastDelegate<T1>                                                          \
	{                                                                                                                  \
	}
#define DECLARE_DYNAMIC_MULTICAST_DELEGATE_TwoParams(DelegateName, T1, N1, T2, N2)                                     \
	class DelegateName : public TDynamicMulticastDelegate<T1, T2>                                                      \
	{                                                                                                                  \
	}
#define DECLARE_DYNAMIC_MULTICAST_DELEGATE_SixParams(DelegateName, T1, N1, T2, N2, T3, N3, T4, N4, T5, N5, T6, N6)     \
	class DelegateName : public TDynamicMulticastDelegate<T1, T2, T3, T4, T5, T6>                                      \
	{                                                                                                                  \
	}
