#pragma once

#include "CoreTypes.h"

class UObject;

/** The values that a reflected function is called with, in the order of its parameters. */
class FFrame
{
public:
	explicit FFrame(const void* const* InParameters)
		: Next(InParameters)
	{
	}

	/** The next parameter's value; the caller made sure of its type. */
	template <class T>
	const T& StepParam()
	{
		return *static_cast<const T*>(*Next++);
	}

private:
	const void* const* Next;
};

/** A reflected function's native entry: reads its parameters from the frame and calls the member. */
using FNativeFuncPtr = void (*)(UObject* Context, FFrame& Stack, void* const Z_Param__Result);

#define RESULT_DECL void* const Z_Param__Result
#define DECLARE_FUNCTION(Function) static void Function(UObject* Context, FFrame& Stack, RESULT_DECL)
#define DEFINE_FUNCTION(Function) void Function(UObject* Context, FFrame& Stack, [[maybe_unused]] RESULT_DECL)
