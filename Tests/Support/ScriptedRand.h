#pragma once

#include "CoreTypes.h"

#include <initializer_list>

namespace Flitmark
{

/**
 * Replaces the C runtime's rand() in the whole test program: returns the scripted values one after the other, and the
 * runtime's own when there are none. Restores everything when it is destroyed.
 */
class FScriptedRand
{
public:
	FScriptedRand() = default;
	~FScriptedRand();
	FScriptedRand(const FScriptedRand&) = delete;
	FScriptedRand& operator=(const FScriptedRand&) = delete;

	void Give(std::initializer_list<int> Values);
	/** The value of every call from now on without a scripted one. */
	void GiveAlways(int Value);
	/** Goes back to the runtime's own values. */
	void Reset();

	/** How often rand() was called in this process. */
	static int32 NumCalls();
};

} // namespace Flitmark
