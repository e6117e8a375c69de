#pragma once

#include "CoreTypes.h"

class UObject;

/** The arguments of a reflected function's call, in parameter order. */
class FFrame
{
public:
	explicit FFrame(const void* const* InParameters)
		: Next(InParameters)
	{
	}

	/** The next argument; the caller has checked its type. */
	template <class T>
	const T& StepParam()
	{
		return *static_cast<const T*>(*Next++);
	}

private:
	const void* const* Next;
};

/** A reflected function's native entry point: reads its arguments from the frame and calls the member. */
using FNativeFuncPtr = void (*)(UObject* Context, FFrame& Stack, void* const Z_Param__Result);

#define RESULT_DECL void* const Z_Param__Result
#define DECLARE_FUNCTION(Function) static void Function(UObject* Context, FFrame& Stack, RESULT_DECL)
#define DEFINE_FUNCTION(Function) void Function(UObject* Context, FFrame& Stack, [[maybe_unused]] RESULT_DECL)
