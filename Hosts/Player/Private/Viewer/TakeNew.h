#pragma once

namespace Flitmark
{

/** Assigns the new value; true if it is different. */
template <class T>
bool TakeNew(T& InOutKnown, const T& InNow)
{
	if (InOutKnown == InNow)
	{
		return false;
	}
	InOutKnown = InNow;
	return true;
}

} // namespace Flitmark
