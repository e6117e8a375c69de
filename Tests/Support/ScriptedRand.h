#pragma once

#include "CoreTypes.h"

#include <initializer_list>

namespace Flitmark
{

/**
 * Takes the place of the C runtime's rand() in the whole test program: gives the values that it was told to give, one
 * after the other, and the runtime's own where it was told none. At its end everything is as before.
 */
class FScriptedRand
{
public:
	FScriptedRand() = default;
	~FScriptedRand();
	FScriptedRand(const FScriptedRand&) = delete;
	FScriptedRand& operator=(const FScriptedRand&) = delete;

	void Give(std::initializer_list<int> Values);
	/** The value of every call from now on that is told no other. */
	void GiveAlways(int Value);
	/** The runtime's own values again. */
	void Reset();

	/** How often rand() was called in this process. */
	static int32 NumCalls();
};

} // namespace Flitmark
