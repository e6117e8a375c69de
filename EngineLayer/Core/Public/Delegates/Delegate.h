#pragma once

#include "CoreTypes.h"
#include "UObject/WeakObjectPtrTemplates.h"

#include <cstring>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

/** Identifies one subscription. */
class FDelegateHandle
{
public:
	FDelegateHandle() = default;
	explicit FDelegateHandle(uint64 InId)
		: Id(InId)
	{
	}
	bool IsValid() const { return Id != 0; }
	void Reset() { Id = 0; }
	friend bool operator==(const FDelegateHandle&, const FDelegateHandle&) = default;

private:
	uint64 Id = 0;
};

template <class Signature>
class TMulticastDelegate;

/**
 * Calls its subscribers one by one, in reverse order of subscription, as the engine does. Objects are held weakly: one
 * that is gone is skipped, and dropped later. Subscribing and unsubscribing inside a call is safe; a subscriber added
 * inside a call is first called by the next one.
 */
template <class... ArgumentTypes>
class TMulticastDelegate<void(ArgumentTypes...)>
{
public:
	template <class UserClass, class MethodClass>
	FDelegateHandle AddUObject(UserClass* Object, void (MethodClass::*Method)(ArgumentTypes...))
	{
		FBinding& Binding = AddBinding(&CallMethod<MethodClass>);
		Binding.bWeak = true;
		Binding.Weak = FWeakObjectPtr(Object);
		Binding.Object = static_cast<MethodClass*>(Object);
		StoreMethod(Binding, Method);
		return FDelegateHandle(Binding.Id);
	}

	/** The subscriber must unsubscribe before it is destroyed. */
	template <class UserClass, class MethodClass>
	FDelegateHandle AddRaw(UserClass* Object, void (MethodClass::*Method)(ArgumentTypes...))
	{
		FBinding& Binding = AddBinding(&CallMethod<MethodClass>);
		Binding.Object = static_cast<MethodClass*>(Object);
		StoreMethod(Binding, Method);
		return FDelegateHandle(Binding.Id);
	}

	bool Remove(FDelegateHandle Handle)
	{
		for (FBinding& Binding : Bindings)
		{
			if (Binding.Call != nullptr && FDelegateHandle(Binding.Id) == Handle)
			{
				Binding.Call = nullptr;
				Compact();
				return true;
			}
		}
		return false;
	}

	bool IsBound() const
	{
		for (const FBinding& Binding : Bindings)
		{
			if (Binding.IsAlive())
			{
				return true;
			}
		}
		return false;
	}

	void Broadcast(ArgumentTypes... Arguments)
	{
		bool bSawDead = false;
		++Depth;
		for (std::size_t Index = Bindings.size(); Index-- > 0;)
		{
			// A copy: the list may move when a subscriber subscribes another.
			const FBinding Binding = Bindings[Index];
			if (Binding.IsAlive())
			{
				Binding.Call(Binding, Arguments...);
			}
			else
			{
				bSawDead = true;
			}
		}
		--Depth;
		if (bSawDead)
		{
			Compact();
		}
	}

private:
	struct FBinding
	{
		void (*Call)(const FBinding&, ArgumentTypes...) = nullptr;
		void* Object = nullptr;
		alignas(void*) std::byte Method[2 * sizeof(void*)] = {};
		FWeakObjectPtr Weak;
		uint64 Id = 0;
		bool bWeak = false;

		bool IsAlive() const { return Call != nullptr && (!bWeak || Weak.IsValid()); }
	};

	template <class MethodClass>
	static void CallMethod(const FBinding& Binding, ArgumentTypes... Arguments)
	{
		void (MethodClass::*Method)(ArgumentTypes...) = nullptr;
		std::memcpy(&Method, Binding.Method, sizeof(Method));
		(static_cast<MethodClass*>(Binding.Object)->*Method)(Arguments...);
	}

	template <class MethodType>
	static void StoreMethod(FBinding& Binding, MethodType Method)
	{
		static_assert(sizeof(Method) <= sizeof(Binding.Method));
		std::memcpy(Binding.Method, &Method, sizeof(Method));
	}

	FBinding& AddBinding(void (*Call)(const FBinding&, ArgumentTypes...))
	{
		FBinding& Binding = Bindings.emplace_back();
		Binding.Call = Call;
		Binding.Id = ++LastId;
		return Binding;
	}

	void Compact()
	{
		if (Depth == 0)
		{
			std::erase_if(Bindings, [](const FBinding& Binding) { return !Binding.IsAlive(); });
		}
	}

	std::vector<FBinding> Bindings;
	uint64 LastId = 0;
	/** How many nested broadcasts are under way. */
	int32 Depth = 0;
};

#define DECLARE_MULTICAST_DELEGATE(DelegateName) typedef TMulticastDelegate<void()> DelegateName
#define DECLARE_MULTICAST_DELEGATE_OneParam(DelegateName, ParamType1)                                                  \
	typedef TMulticastDelegate<void(ParamType1)> DelegateName
