#include "ScriptedRand.h"

#include <cstdlib>
#include <deque>
#include <dlfcn.h>
#include <optional>

namespace
{

std::deque<int> Scripted;
std::optional<int> Standing;
int32 Calls = 0;

} // namespace

/** A program's own functions take precedence over those of its libraries, even for calls from the overlay's library. */
extern "C" int rand() noexcept
{
	++Calls;
	if (!Scripted.empty())
	{
		const int Value = Scripted.front();
		Scripted.pop_front();
		return Value;
	}
	if (Standing)
	{
		return *Standing;
	}
	static const auto Original = reinterpret_cast<int (*)()>(dlsym(RTLD_NEXT, "rand"));
	return Original();
}

namespace Flitmark
{

FScriptedRand::~FScriptedRand()
{
	Reset();
}

void FScriptedRand::Reset()
{
	Scripted.clear();
	Standing.reset();
}

void FScriptedRand::Give(std::initializer_list<int> Values)
{
	Scripted.insert(Scripted.end(), Values);
}

void FScriptedRand::GiveAlways(int Value)
{
	Standing = Value;
}

int32 FScriptedRand::NumCalls()
{
	return Calls;
}

} // namespace Flitmark
